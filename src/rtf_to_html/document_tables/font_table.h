// The fonts of the document, and the sizes of its page.
#pragma once

#include "apartment/rtf_to_html_state.h"
#include "text/text.h"

namespace quillary::modQuillary {

/// Fills SizeTable: for a size in points, what goes into a size attribute.
void FillSizeTable(RtfToHtmlState& state);

/// Reads the font table of `text`, the first part of a document, into
/// FontCount, FontFaces and FontCharsets, by position: the third entry is font
/// 2, whatever its number. Sets ForeignCharsets where a charset is above 2. A
/// text without a font table changes nothing. Throws Failure for a table that
/// it cannot walk; what was read up to there stays.
void ReadFontTable(RtfToHtmlState& state, TextView text);

}  // namespace quillary::modQuillary

// Module HTMLRTFConverter: two stages that rewrite the page by the places of its tags.
// Floating elements become tables, and runs in Arabic get sentinels.
#pragma once

#include "text/text.h"

namespace quillary::HTMLRTFConverter {

/// A floating element and its neighbour become a table of one row with two cells; one without
/// a neighbour that has an end, a table of one cell.
void FloatsToTables(Text& page);

/// The width in the style of a tag without its PX, empty if there is none or nothing ends it.
Text StyleWidth(TextView tag);

/// Puts sentinels around what stands in the elements that are marked as Arabic.
void MarkArabicRuns(Text& page);

}  // namespace quillary::HTMLRTFConverter

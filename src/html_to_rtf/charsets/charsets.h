// Module HTMLRTFConverter: the charset that a page declares, and the two Far East charsets
// that are decoded to RTF here. The bytes of the others pass through.
#pragma once

#include "apartment/html_to_rtf_state.h"
#include "text/text.h"

namespace quillary::HTMLRTFConverter {

/// Sets DocCharset and the flags of charsets by the META tags of the page's head. Gives whether
/// a word processor has written the page.
bool DetectCharset(HtmlToRtfState& state, TextView text);

/// The runs between escape sequences become words of RTF, with "#\#" for each backslash.
/// Throws Failure (subscript) for a character after the last row or column of its charset; the
/// text then holds what was decoded so far.
void ConvertIso2022Jp(Text& text);

/// The pairs of a run become words of RTF. Throws Failure as above, and leaves the text.
void DecodeGb2312Run(Text& text);

}  // namespace quillary::HTMLRTFConverter

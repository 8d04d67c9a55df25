// SPAN tags, and the styles of paragraphs, which are handled as spans.
#pragma once

#include "apartment/apartment.h"
#include "text/text.h"

namespace quillary::HTMLRTFConverter {

/// Puts a span level on FontStack with what the style in the tag, in upper case, says.
/// Throws Failure (type, overflow) for a size that is no number or too large; what was
/// read by then stays.
void OpenSpan(Apartment& apartment, TextView tag);

/// Ends the span level that is next to the top; levels above it stay.
void CloseSpan(HtmlToRtfState& state);

}  // namespace quillary::HTMLRTFConverter

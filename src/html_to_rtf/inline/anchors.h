// Anchors, which become hyperlink fields.
#pragma once

#include "apartment/html_to_rtf_state.h"
#include "text/text.h"

namespace quillary::HTMLRTFConverter {

/// Opens a field for a tag, in upper case, with an address in quotation marks. The case
/// of the address is lost.
void OpenAnchor(HtmlToRtfState& state, TextView tag);
void CloseAnchor(HtmlToRtfState& state);

}  // namespace quillary::HTMLRTFConverter

// Brace groups in the body of a segment.
#pragma once

#include "apartment/rtf_to_html_state.h"
#include "text/text.h"

namespace quillary::modQuillary {

/// Takes the brace groups out of the body: groups within groups and
/// destinations go, of simple groups the text stays.
void RemoveBraceGroups(const RtfToHtmlState& state, Text& body);

}  // namespace quillary::modQuillary

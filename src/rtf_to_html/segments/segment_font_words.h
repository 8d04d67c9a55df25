// The words of size, font, colour and highlight in the body.
#pragma once

#include "apartment/rtf_to_html_state.h"
#include "rtf_to_html/segments/segment.h"
#include "rules/rewriting.h"

namespace quillary::modQuillary {

/// The words of size, font, colour and highlight in the body.
void ReplaceFontWords(RtfToHtmlState& state, Segment& segment, rules::Rewriting& body);

}  // namespace quillary::modQuillary

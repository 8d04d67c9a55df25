// The control words of the head.
#pragma once

#include "apartment/rtf_to_html_state.h"
#include "rtf_to_html/segments/segment.h"
#include "rules/rewriting.h"

namespace quillary::modQuillary {

/// Reads the control words of the head into opening, closing and attributes.
void ReadHeadWords(RtfToHtmlState& state, Segment& segment, rules::Rewriting& body);

}  // namespace quillary::modQuillary

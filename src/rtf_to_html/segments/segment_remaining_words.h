// The words that are left in the body once the head has been read.
#pragma once

#include "apartment/rtf_to_html_state.h"
#include "rtf_to_html/segments/segment.h"
#include "rules/rewriting.h"

namespace quillary::modQuillary {

/// Replaces all words that are still in the body and mean something.
void ReplaceRemainingWords(RtfToHtmlState& state, Segment& segment, rules::Rewriting& body);

}  // namespace quillary::modQuillary

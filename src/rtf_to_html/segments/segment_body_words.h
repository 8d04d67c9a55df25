// The control words that can stand in running text.
#pragma once

#include "apartment/rtf_to_html_state.h"
#include "rules/rewriting.h"
#include "text/text.h"

namespace quillary::modQuillary {

/// Replaces the control words that stand in running text. From here to the
/// output the body is a text under rewriting, so that one index serves all.
void ReplaceBodyWords(RtfToHtmlState& state, rules::Rewriting& body, TextView head);

}  // namespace quillary::modQuillary

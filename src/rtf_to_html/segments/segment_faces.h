// The font words in the body.
#pragma once

#include "apartment/rtf_to_html_state.h"
#include "rtf_to_html/segments/segment.h"
#include "rules/rewriting.h"

namespace quillary::modQuillary {

/// Replaces the font words of the body by font tags.
void ReplaceFaces(RtfToHtmlState& state, Segment& segment, rules::Rewriting& body);

}  // namespace quillary::modQuillary

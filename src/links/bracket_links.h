// The small scan for a page whose addresses are to stay plain text: only what a
// word processor put into angle brackets as a mail or file target is linked.
#pragma once

#include "apartment/rtf_to_html_state.h"

namespace quillary::links {

/// `copy` is a copy of HtmlOut, which gets the page with its links; FoundLinks
/// gets the links. Throws as ScanLinks.
void ScanBracketLinks(RtfToHtmlState& state, TextView copy);
/// The same on HtmlOut itself.
void ScanBracketLinks(RtfToHtmlState& state);

}  // namespace quillary::links

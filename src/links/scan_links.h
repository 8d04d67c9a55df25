// Turns the web, news, file and picture addresses that stand as plain text in a
// page into anchors and images.
#pragma once

#include "apartment/rtf_to_html_state.h"

namespace quillary::links {

/// `copy` is a copy of HtmlOut, which gets the page with its links;
/// FoundLinks gets the links. Throws Failure: subscript if the prefixes or
/// delimiters were never loaded, argument for an empty page. HtmlOut is then
/// as it was.
void ScanLinks(RtfToHtmlState& state, TextView copy);
/// The same on HtmlOut itself.
void ScanLinks(RtfToHtmlState& state);

}  // namespace quillary::links

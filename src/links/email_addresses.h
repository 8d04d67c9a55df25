// Finds mail addresses in a page and turns them into mailto: anchors.
#pragma once

#include "apartment/rtf_to_html_state.h"

namespace quillary::links {

/// `copy` is a copy of HtmlOut, which gets the page with its anchors;
/// FoundEmails gets the addresses. Throws Failure (subscript) if the page holds
/// an at sign and the delimiters were never loaded; HtmlOut is then as it was.
void ScanEmailAddresses(RtfToHtmlState& state, TextView copy);
/// The same on HtmlOut itself.
void ScanEmailAddresses(RtfToHtmlState& state);

/// The address in a stretch of text around one at sign, or an empty text.
Text ExtractEmailAddress(TextView stretch);

/// Takes characters that no address holds off both ends of a word. Returns the
/// word, which is changed in place.
Text StripEmailFringe(Text& word);

}  // namespace quillary::links

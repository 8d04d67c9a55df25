// What a link begins with and where it ends. Both scans of links share the two
// lists of the state; whichever set was loaded last is in force.
#pragma once

#include "apartment/rtf_to_html_state.h"

namespace quillary::links {

/// Web, news and file addresses in plain text.
void LoadLinkPrefixes(RtfToHtmlState& state);
void LoadLinkDelimiters(RtfToHtmlState& state);

/// Addresses that a word processor left after a label, in angle brackets.
void LoadBracketPrefixes(RtfToHtmlState& state);
void LoadBracketDelimiters(RtfToHtmlState& state);

/// The last three delimiters never end a link, only a mail address.
inline constexpr std::int32_t kDelimitersOfAddressesOnly = 3;

/// A scan keeps so many links or addresses, and stops when it has found so many.
inline constexpr std::int32_t kFoundCapacity = 2000;
inline constexpr std::int32_t kFoundLimit = 1995;

}  // namespace quillary::links

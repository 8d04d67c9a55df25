// What a page may ask of the HTML library, which works through open elements
// by recursion and compares the attributes of a tag with each other.
#pragma once

#include <string_view>

namespace quillary::platform {

/// Whether the page keeps to the bounds; takes time in the length of the page.
bool IsWithinBounds(std::string_view page);

}  // namespace quillary::platform

// What a page may ask of the HTML library. It works through open elements by
// recursion and opens all inline ones again in every new block, so that a few
// thousand of them are more than its stack or anyone's patience can bear.
#pragma once

#include <string_view>

namespace quillary::platform {

/// Whether the page keeps to the bounds; takes time in the length of the page.
bool IsWithinBounds(std::string_view page);

}  // namespace quillary::platform

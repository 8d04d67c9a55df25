// The order of inline elements in a page on its way to the HTML library.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quillary::platform {

/// The page with its inline elements nested, and none of them open across a
/// block, a list or a cell: each is closed there and opened again in front of
/// the text after it, as browsers read such a page. End tags of what is not open
/// go. Nothing if that opens more elements again than a page may have.
std::optional<std::string> WithInlinesInOrder(std::string_view page);

}  // namespace quillary::platform

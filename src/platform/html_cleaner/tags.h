// The tags of a page, read as the HTML library reads them.
#pragma once

#include <string>
#include <string_view>

namespace quillary::platform {

struct Tag {
  bool closes;
  std::string name;  // in lower case; none for a declaration
  std::size_t end;   // after its ">", or where the next tag begins without one
};

/// The tag that begins at this "<".
Tag ReadTag(std::string_view page, std::size_t at);

/// Where the end tag of this name begins, the end of the page if nowhere.
std::size_t EndTagOf(std::string_view page, std::string_view name, std::size_t from);

/// Whether the text begins with this lower-case name in any case.
bool StartsWithName(std::string_view text, std::string_view name);

/// Whether a name is one in XML and has no prefix.
bool IsPlainName(std::string_view name);

}  // namespace quillary::platform

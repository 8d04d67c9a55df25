#include "platform/html_cleaner/tags.h"

#include <algorithm>

#include "text/ascii.h"

namespace quillary::platform {

Tag ReadTag(std::string_view page, std::size_t at) {
  Tag tag{page.substr(at + 1).starts_with('/'), {}, page.size()};
  for (at += tag.closes ? 2 : 1; at < page.size() && IsAsciiAlphanumeric(page[at]); ++at) {
    tag.name += AsciiLower(page[at]);
  }
  // A ">" in a value ends the tag only where the value has no end.
  std::size_t quoted_end = page.size();
  char quote = 0;
  for (; at < page.size() && page[at] != '<'; ++at) {
    if (quote != 0) {
      if (page[at] == '>' && quoted_end == page.size()) quoted_end = at + 1;
      if (page[at] != quote) continue;
      quote = 0;
      quoted_end = page.size();
    } else if (page[at] == '"' || page[at] == '\'') {
      quote = page[at];
    } else if (page[at] == '>') {
      tag.end = at + 1;
      return tag;
    }
  }
  tag.end = std::min(quoted_end, at);
  return tag;
}

std::size_t EndTagOf(std::string_view page, std::string_view name, std::size_t from) {
  std::size_t at = page.find("</", from);
  while (at != std::string_view::npos && !StartsWithName(page.substr(at + 2), name))
    at = page.find("</", at + 2);
  return std::min(at, page.size());
}

bool StartsWithName(std::string_view text, std::string_view name) {
  return text.size() >= name.size() &&
         std::equal(name.begin(), name.end(), text.begin(),
                    [](char lower, char character) { return lower == AsciiLower(character); });
}

bool IsPlainName(std::string_view name) {
  if (name.empty() || !(IsAsciiLetter(name[0]) || name[0] == '_')) return false;
  return std::all_of(name.begin(), name.end(), [](char character) {
    return IsAsciiAlphanumeric(character) || character == '_' || character == '-' || character == '.';
  });
}

}  // namespace quillary::platform

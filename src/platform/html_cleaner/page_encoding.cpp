#include "platform/html_cleaner/page_encoding.h"

#include <algorithm>
#include <charconv>

#include "text/ascii.h"
#include "text/encodings.h"

namespace quillary::platform {
namespace {

bool IsControl(char byte) {
  return static_cast<unsigned char>(byte) < 0x20 && byte != '\t' && byte != '\n' && byte != '\r';
}

bool StartsWithWord(std::string_view text, std::string_view lower) {
  return text.size() >= lower.size() && std::equal(lower.begin(), lower.end(), text.begin(),
                                                   [](char a, char b) { return a == AsciiLower(b); });
}

bool OpensMarkup(std::string_view behind, bool first) {
  if (behind.empty()) return false;
  return IsAsciiLetter(behind[0]) || behind[0] == '/' || behind.starts_with("!--") ||
         (first && StartsWithWord(behind, "!doctype"));
}

bool IsCharacter(unsigned long number) {
  if (number < 0x20) return number == '\t' || number == '\n' || number == '\r';
  return number <= 0x10FFFF && (number < 0xD800 || number > 0xDFFF) && (number & 0xFFFE) != 0xFFFE;
}

// The length of a numeric reference at the beginning of the text that stands
// for no character, 0 if there is none.
std::size_t BadReference(std::string_view text) {
  if (!text.starts_with("&#")) return 0;
  const bool hexadecimal = text.size() > 2 && (text[2] | 0x20) == 'x';
  const char* first = text.data() + (hexadecimal ? 3 : 2);
  const char* end = text.data() + text.size();
  if (first >= end) return 0;
  unsigned long number = 0;
  const std::from_chars_result read = std::from_chars(first, end, number, hexadecimal ? 16 : 10);
  if (read.ptr == first) return 0;
  if (read.ec == std::errc() && IsCharacter(number)) return 0;
  const std::size_t length = static_cast<std::size_t>(read.ptr - text.data());
  return length + (length < text.size() && text[length] == ';' ? 1 : 0);
}

// The length of an element at the beginning of the text whose content is no
// HTML, to its end tag or the end of the page; 0 for any other text.
std::size_t ForeignElement(std::string_view text) {
  for (const std::string_view name : {"script", "style", "math", "svg"}) {
    if (!StartsWithWord(text.substr(1), name)) continue;
    const std::string_view behind = text.substr(1 + name.size());
    if (!behind.empty() && IsAsciiAlphanumeric(behind[0])) continue;
    const std::size_t end = text.find('>', EndTagOf(text, name, 0));
    return end == std::string_view::npos ? text.size() : end + 1;
  }
  return 0;
}

}  // namespace

std::string WithoutForeignElements(std::string_view page) {
  std::string kept;
  kept.reserve(page.size());
  std::size_t at = 0;
  while (at < page.size()) {
    const std::size_t next = std::min(page.find('<', at), page.size());
    kept += page.substr(at, next - at);
    at = next;
    if (at == page.size()) break;
    const std::size_t foreign = ForeignElement(page.substr(at));
    if (foreign == 0) kept += page[at];
    at += std::max<std::size_t>(foreign, 1);
  }
  return kept;
}

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
  while (at != std::string_view::npos && !StartsWithWord(page.substr(at + 2), name))
    at = page.find("</", at + 2);
  return std::min(at, page.size());
}

bool IsPlainName(std::string_view name) {
  if (name.empty() || !(IsAsciiLetter(name[0]) || name[0] == '_')) return false;
  return std::all_of(name.begin(), name.end(), [](char sign) {
    return IsAsciiAlphanumeric(sign) || sign == '_' || sign == '-' || sign == '.';
  });
}

std::string EncodePage(TextView html) {
  const std::string bytes = ToWindows1252(html, '?');
  const std::string_view view = bytes;
  std::string page;
  page.reserve(bytes.size());
  bool first = true;  // nothing but blanks so far
  for (std::size_t i = 0; i < view.size(); ++i) {
    const std::size_t reference = view[i] == '&' ? BadReference(view.substr(i)) : 0;
    if (reference > 0) {
      i += reference - 1;
    } else if (view[i] == '<' && !OpensMarkup(view.substr(i + 1), first)) {
      page += "&lt;";
    } else if (!IsControl(view[i])) {
      page += view[i];
    }
    first = first && IsAsciiSpaceOrControl(view[i]);
  }
  return page;
}

}  // namespace quillary::platform

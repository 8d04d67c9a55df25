#include "platform/html_cleaner/page_encoding.h"

#include <algorithm>
#include <charconv>

#include "platform/html_cleaner/tags.h"
#include "text/ascii.h"
#include "text/encodings.h"

namespace quillary::platform {
namespace {

bool IsControl(char byte) {
  return static_cast<unsigned char>(byte) < 0x20 && byte != '\t' && byte != '\n' && byte != '\r';
}

bool OpensMarkup(std::string_view rest, bool at_start) {
  if (rest.empty()) return false;
  return IsAsciiLetter(rest[0]) || rest[0] == '/' || rest.starts_with("!--") ||
         (at_start && StartsWithName(rest, "!doctype"));
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
    if (!StartsWithName(text.substr(1), name)) continue;
    const std::string_view rest = text.substr(1 + name.size());
    if (!rest.empty() && IsAsciiAlphanumeric(rest[0])) continue;
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

std::string EncodePage(TextView html) {
  const std::string bytes = ToWindows1252(html, '?');
  const std::string_view view = bytes;
  std::string page;
  page.reserve(bytes.size());
  bool at_start = true;  // nothing but white space so far
  for (std::size_t i = 0; i < view.size(); ++i) {
    const std::size_t reference = view[i] == '&' ? BadReference(view.substr(i)) : 0;
    if (reference > 0) {
      i += reference - 1;
    } else if (view[i] == '<' && !OpensMarkup(view.substr(i + 1), at_start)) {
      page += "&lt;";
    } else if (!IsControl(view[i])) {
      page += view[i];
    }
    at_start = at_start && IsAsciiSpaceOrControl(view[i]);
  }
  return page;
}

}  // namespace quillary::platform

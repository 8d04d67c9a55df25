#include "rtf_to_html/segments/escape_context.h"

#include <algorithm>

#include "platform/code_pages/code_pages.h"
#include "text/ascii.h"

namespace quillary::modQuillary {
namespace {

constexpr TextView kFontWord = u"\\f";

/// The font word of a head: one digit at its very end comes first, then the
/// highest number that ends at a backslash, a space or the end.
std::optional<int> FontOfHead(TextView head, int font_count) {
  if (head.size() >= 6) {
    const std::size_t last = head.size() - 3;
    if (head.substr(last).starts_with(kFontWord)) {
      if (const auto found = ReadFontNumber(head, last, font_count)) return found->number;
    }
  }
  std::optional<int> highest;
  for (std::size_t at = head.find(kFontWord); at != TextView::npos; at = head.find(kFontWord, at + 1)) {
    const auto found = ReadFontNumber(head, at, font_count);
    if (!found) continue;
    if (found->end == head.size() || head[found->end] == u'\\' || head[found->end] == u' ') {
      highest = std::max(highest.value_or(0), found->number);
    }
  }
  return highest;
}

}  // namespace

EscapeHead ReadEscapeHead(const RtfToHtmlState& state, TextView head) {
  EscapeHead read;
  read.turkish = Holds(head, u"lang1055");
  read.greek = Holds(head, u"lang1032");
  read.sets_font = Holds(head, kFontWord);
  if (read.sets_font) read.font = FontOfHead(head, state.FontCount);
  return read;
}

std::optional<FontNumber> ReadFontNumber(TextView text, std::size_t at, int font_count) {
  const std::size_t first = at + kFontWord.size();
  FontNumber read{0, first};
  while (read.end < text.size() && IsAsciiDigit(text[read.end])) {
    read.number = read.number * 10 + (text[read.end++] - u'0');
    if (read.number > font_count) return std::nullopt;
  }
  const std::size_t digits = read.end - first;
  if (digits == 0 || (digits > 1 && text[first] == u'0')) return std::nullopt;
  return read;
}

int CharsetOfFont(const RtfToHtmlState& state, int font) {
  return state.FontCharsets.has(font) ? state.FontCharsets[font] : 0;
}

int EscapeCodePageOfCharset(int charset) {
  const int code_page = platform::CodePageOfCharset(charset);
  return platform::DecodesEscapes(code_page) ? code_page : 0;
}

std::unique_ptr<platform::CodePageDecoder> NewDecoder(const Apartment& apartment) {
  if (!apartment.services.code_page_decoder) throw Failure(Failure::Kind::Raised);
  return apartment.services.code_page_decoder();
}

}  // namespace quillary::modQuillary

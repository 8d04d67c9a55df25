#include "page_reader/page_reader.h"

#include <algorithm>

#include "page_reader/page_charset.h"
#include "page_reader/page_text.h"
#include "text/encodings.h"

namespace quillary::page_reader {
namespace {

using platform::Charset;

struct RulesCharset {
  Charset charset;
  TextView label;  // by which the rules recognise it, with a quote after it
};

/// The charsets that the rules decode themselves.
constexpr RulesCharset kDecodedByRules[] = {{Charset::Windows1251, u"windows-1251"}};

bool IsDecodedByRules(Charset charset, std::string_view bytes) {
  return std::ranges::any_of(kDecodedByRules, [&](const RulesCharset& row) {
    if (row.charset != charset) return false;
    const Text page = FromWindows1252(bytes);
    return Holds(page, Joined({row.label, u"\""}), Compare::IgnoreCase) ||
           Holds(page, Joined({row.label, u"'"}), Compare::IgnoreCase);
  });
}

/// Whether bytes that call themselves UTF-8 hold a character of more than one
/// byte, or nothing that would need one.
bool SeemsUtf8(std::string_view bytes, TextView decoded) {
  constexpr char16_t kReplacement = 0xFFFD;
  const auto is_character = [](char16_t unit) { return unit >= 0x80 && unit != kReplacement; };
  return decoded.find(kReplacement) == TextView::npos || std::ranges::any_of(decoded, is_character) ||
         bytes.find("\xEF\xBF\xBD") != std::string_view::npos;
}

Text Decode(std::string_view bytes, const PageCharset& found) {
  Text page = platform::DecodeCharset(found.charset, bytes.substr(found.mark_length));
  const bool declared_utf8 = found.charset == Charset::Utf8 && found.mark_length == 0;
  return !declared_utf8 || SeemsUtf8(bytes, page) ? page : FromWindows1252(bytes);
}

}  // namespace

Text ReadPage(std::string_view bytes) {
  const PageCharset found = FindPageCharset(bytes);
  if (IsDecodedByRules(found.charset, bytes)) return SpellReferences(FromWindows1252(bytes));
  return SpellPage(Decode(bytes, found));
}

}  // namespace quillary::page_reader

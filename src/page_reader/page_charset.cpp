#include "page_reader/page_charset.h"

#include <algorithm>
#include <optional>
#include <string>

#include "page_reader/markup.h"
#include "text/encodings.h"
#include "text/search.h"

namespace quillary::page_reader {
namespace {

using platform::Charset;
using namespace std::string_view_literals;

// Browsers look at the first 1,024 bytes, or as far as the first packet goes.
constexpr std::size_t kHeadBytes = 8192;

struct Beginning {
  std::string_view bytes;
  Charset charset;
  std::size_t mark_length;
};

// Browsers have given up UTF-32, whose pages they read as UTF-16 full of NULs.
constexpr Beginning kBeginnings[] = {
    {"\xFF\xFE\0\0"sv, Charset::Utf32Le, 4}, {"\0\0\xFE\xFF"sv, Charset::Utf32Be, 4},
    {"\xEF\xBB\xBF", Charset::Utf8, 3},      {"\xFE\xFF", Charset::Utf16Be, 2},
    {"\xFF\xFE", Charset::Utf16Le, 2},       {"<\0?\0x\0"sv, Charset::Utf16Le, 0},
    {"\0<\0?\0x"sv, Charset::Utf16Be, 0},
};

std::optional<Charset> FindDeclared(TextView label) {
  const std::optional<Charset> charset = platform::FindCharset(ToUtf8(label));
  return charset == Charset::Utf16Le || charset == Charset::Utf16Be ? Charset::Utf8 : charset;
}

/// What is assigned to `name` in the text of an attribute or a declaration.
TextView AssignedTo(TextView name, TextView text) {
  constexpr TextView kSpaces = u"\t\n\f\r ";
  const Finder finder(name, Compare::IgnoreCase);
  for (std::size_t at = finder.Next(text, 0); at != Finder::npos; at = finder.Next(text, at)) {
    at = std::min(text.find_first_not_of(kSpaces, at + name.size()), text.size());
    if (at == text.size() || text[at] != u'=') continue;
    const TextView rest = text.substr(std::min(text.find_first_not_of(kSpaces, at + 1), text.size()));
    if (!rest.starts_with(u'"') && !rest.starts_with(u'\'')) {
      return rest.substr(0, rest.find_first_of(u"\t\n\f\r ;"));
    }
    const std::size_t close = rest.find(rest[0], 1);
    return close == TextView::npos ? TextView() : rest.substr(1, close - 1);
  }
  return {};
}

/// The charset of the META element whose attributes begin at `at`.
std::optional<Charset> DeclaredByMeta(TextView head, std::size_t& at) {
  std::optional<TextView> charset;
  std::optional<TextView> pragma;
  std::optional<TextView> content;
  for (Attribute attribute; ReadAttribute(head, at, attribute);) {
    const auto keep_first = [&](TextView name, std::optional<TextView>& value) {
      if (!value && Equal(attribute.name, name, Compare::IgnoreCase)) value = attribute.value;
    };
    keep_first(u"charset", charset);
    keep_first(u"http-equiv", pragma);
    keep_first(u"content", content);
  }
  if (charset) return FindDeclared(*charset);
  if (!content || !pragma || !Equal(*pragma, u"content-type", Compare::IgnoreCase)) return std::nullopt;
  return FindDeclared(AssignedTo(u"charset", *content));
}

std::optional<Charset> FindDeclaration(TextView head) {
  for (std::size_t at = head.find(u'<'); at != TextView::npos; at = head.find(u'<', at)) {
    const TextView name = TagName(head, at);
    if (Equal(name, u"meta", Compare::IgnoreCase)) {
      at += 1 + name.size();
      if (const std::optional<Charset> charset = DeclaredByMeta(head, at)) return charset;
    } else {
      at = std::max(at + 1, MarkupEnd(head, at));
    }
  }
  if (!head.starts_with(u"<?xml")) return std::nullopt;
  return FindDeclared(AssignedTo(u"encoding", head.substr(0, head.find(u'>'))));
}

}  // namespace

PageCharset FindPageCharset(std::string_view bytes) {
  for (const Beginning& beginning : kBeginnings) {
    if (bytes.starts_with(beginning.bytes)) return {beginning.charset, beginning.mark_length};
  }
  const std::optional<Charset> declared = FindDeclaration(FromWindows1252(bytes.substr(0, kHeadBytes)));
  return {declared.value_or(Charset::Windows1252), 0};
}

}  // namespace quillary::page_reader

#include "page_reader/markup.h"

#include <algorithm>

#include "text/ascii.h"

namespace quillary::page_reader {
namespace {

constexpr bool IsSpace(char16_t unit) {
  return unit == u' ' || unit == u'\t' || unit == u'\n' || unit == u'\f' || unit == u'\r';
}
constexpr bool EndsValue(char16_t unit) { return unit <= u'>' && (IsSpace(unit) || unit == u'>'); }
constexpr bool EndsName(char16_t unit) { return EndsValue(unit) || unit == u'/'; }
constexpr bool EndsAttributeName(char16_t unit) { return EndsName(unit) || unit == u'='; }

template <class Is>
std::size_t FirstOf(TextView page, std::size_t at, Is is) {
  while (at < page.size() && !is(page[at])) ++at;
  return at;
}

std::size_t AfterSpaces(TextView page, std::size_t at) {
  return FirstOf(page, at, [](char16_t unit) { return !IsSpace(unit); });
}

std::size_t After(TextView page, char16_t unit, std::size_t at) {
  return std::min(page.find(unit, at), page.size() - 1) + 1;
}

bool IsAt(TextView page, std::size_t at, char16_t unit) { return at < page.size() && page[at] == unit; }

/// "<!-->" and "<!--->" are whole comments, and "--!>" closes one too.
std::size_t CommentEnd(TextView page, std::size_t at) {
  const std::size_t content = at + 4;
  for (std::size_t dashes = page.find(u"--", at + 2); dashes != TextView::npos;
       dashes = page.find(u"--", dashes + 1)) {
    if (IsAt(page, dashes + 2, u'>')) return dashes + 3;
    if (dashes >= content && page.substr(dashes + 2).starts_with(u"!>")) return dashes + 4;
  }
  return page.size();
}

}  // namespace

TextView TagName(TextView page, std::size_t at) {
  const std::size_t name = at + (IsAt(page, at + 1, u'/') ? 2 : 1);
  if (name >= page.size() || !IsAsciiLetter(page[name])) return {};
  return page.substr(at + 1, FirstOf(page, name, EndsName) - at - 1);
}

bool ReadAttribute(TextView page, std::size_t& at, Attribute& attribute) {
  while (at < page.size() && EndsName(page[at])) {
    if (page[at++] == u'>') return false;
  }
  if (at == page.size()) return false;
  const std::size_t name_end = FirstOf(page, at + 1, EndsAttributeName);  // a "=" may begin a name
  attribute = {page.substr(at, name_end - at), {}};
  at = AfterSpaces(page, name_end);
  if (!IsAt(page, at, u'=')) return true;
  at = AfterSpaces(page, at + 1);
  if (IsAt(page, at, u'"') || IsAt(page, at, u'\'')) {
    const std::size_t close = std::min(page.find(page[at], at + 1), page.size());
    attribute.value = page.substr(at + 1, close - at - 1);
    at = std::min(close + 1, page.size());
  } else {
    const std::size_t end = FirstOf(page, at, EndsValue);
    attribute.value = page.substr(at, end - at);
    at = end;
  }
  return true;
}

std::size_t MarkupEnd(TextView page, std::size_t at) {
  if (const TextView name = TagName(page, at); !name.empty()) {
    std::size_t end = at + 1 + name.size();
    for (Attribute attribute; ReadAttribute(page, end, attribute);) {
    }
    return end;
  }
  if (page.substr(at).starts_with(u"<!--")) return CommentEnd(page, at);
  const bool declaration = IsAt(page, at + 1, u'!') || IsAt(page, at + 1, u'?') || IsAt(page, at + 1, u'/');
  return declaration ? After(page, u'>', at) : at;
}

std::size_t RawContentEnd(TextView page, std::size_t at, TextView name) {
  if (!Equal(name, u"script", Compare::IgnoreCase) && !Equal(name, u"style", Compare::IgnoreCase)) return at;
  for (at = page.find(u"</", at); at != TextView::npos; at = page.find(u"</", at + 1)) {
    const TextView end_tag = TagName(page, at);
    if (!end_tag.empty() && Equal(end_tag.substr(1), name, Compare::IgnoreCase)) return at;
  }
  return page.size();
}

}  // namespace quillary::page_reader

#include "literal.h"

#include <algorithm>
#include <charconv>

#include "rules/notation.h"

namespace quillary::rulec {
namespace {

void AppendCharacter(std::uint32_t code, Text& text) {
  if (code >= 0x10000) {
    text += static_cast<char16_t>(0xD7C0 + (code >> 10));
    code = 0xDC00 + (code & 0x3FF);
  }
  text += static_cast<char16_t>(code);
}

bool IsNameUnit(char16_t unit) {
  return (unit >= u'a' && unit <= u'z') || (unit >= u'0' && unit <= u'9') || unit == u'_';
}

bool IsHexDigit(char16_t unit) {
  return (unit >= u'0' && unit <= u'9') || (unit >= u'a' && unit <= u'f') || (unit >= u'A' && unit <= u'F');
}

// Takes the character that the source writes by its number at `at`, \u{A0}.
// Only hexadecimal digits between the braces make it one: \u in front of
// anything else is a control word of a document.
bool TakeNumbered(TextView source, std::size_t& at, std::size_t line, Text& plain) {
  if (!source.substr(at).starts_with(u"\\u{")) return false;
  std::size_t end = at + 3;
  while (end < source.size() && IsHexDigit(source[end])) ++end;
  if (end == at + 3 || end == source.size() || source[end] != u'}') return false;
  const std::string digits = ToUtf8(source.substr(at + 3, end - at - 3));
  std::uint32_t code = 0;
  if (std::from_chars(digits.data(), digits.data() + digits.size(), code, 16).ec != std::errc() ||
      code > 0x10FFFF) {
    throw Malformed(line, "no character has the number " + digits);
  }
  AppendCharacter(code, plain);
  at = end + 1;
  return true;
}

// The name between the delimiter at `at` and the first `close` behind it, or
// nothing if no name stands there.
std::string NameAt(TextView source, std::size_t at, char16_t close) {
  std::size_t end = at + 1;
  while (end < source.size() && IsNameUnit(source[end])) ++end;
  if (end == source.size() || source[end] != close) return "";
  return ToUtf8(source.substr(at + 1, end - at - 1));
}

void CheckBlanks(TextView source, std::size_t line) {
  if (source.starts_with(u' ') || source.ends_with(u' ')) {
    throw Malformed(line, "bare blank at the edge of a literal");
  }
  if (source.find(u"  ") != TextView::npos) throw Malformed(line, "bare run of blanks");
}

}  // namespace

Literal ReadLiteral(const std::string& source, std::size_t line, const Scope& scope) {
  const Text text = FromUtf8(source);
  CheckBlanks(text, line);
  Literal literal(1);
  std::size_t at = 0;
  while (at < text.size()) {
    Text& plain = literal.back().text;
    if (TakeNumbered(text, at, line, plain)) continue;
    if (rules::IsInvisible(text, at)) throw Malformed(line, "invisible character in a literal");
    const char16_t unit = text[at++];
    if (unit == u'␣') {
      plain += u' ';
    } else if (unit == u'⏎') {
      plain += u"\r\n";
    } else if (unit == u'␍') {
      plain += u'\r';
    } else if (unit == u'␊') {
      plain += u'\n';
    } else if (const std::string used = unit == u'‹' ? NameAt(text, at - 1, u'›') : ""; !used.empty()) {
      const auto found = std::find_if(scope.names.begin(), scope.names.end(),
                                      [&](const Named& known) { return known.name == used; });
      if (found == scope.names.end()) throw Malformed(line, "unknown name: " + used);
      if (scope.used != nullptr) scope.used->insert(used);
      plain += found->text;
      at += used.size() + 1;
    } else if (const std::string name = unit == u'<' ? NameAt(text, at - 1, u'>') : "";
               scope.placeholders.contains(name)) {
      literal.push_back({true, name, u""});
      literal.emplace_back();
      at += name.size() + 1;
    } else if (scope.elsewhere.contains(name)) {
      throw Malformed(line, "unknown placeholder: " + name);
    } else {
      plain += unit;
    }
  }
  return literal;
}

Text Fill(const Literal& literal, const std::map<std::string, Text>& values) {
  Text text;
  for (const Piece& piece : literal) text += piece.is_placeholder ? values.at(piece.placeholder) : piece.text;
  return text;
}

}  // namespace quillary::rulec

#include "platform/rich_text/reader/tokens.h"

#include <algorithm>
#include <limits>

#include "text/ascii.h"

namespace quillary::platform::rtf {
namespace {

/// The characters that stand for themselves: from the space to the tilde, but
/// for the three that make RTF.
bool IsPlain(char16_t unit) {
  return unit >= u' ' && unit <= u'~' && unit != u'\\' && unit != u'{' && unit != u'}';
}

}  // namespace

Token Tokens::Next() {
  while (at_ < rtf_.size()) {
    const char16_t unit = rtf_[at_];
    if (IsPlain(unit)) {
      std::size_t end = at_ + 1;
      while (end < rtf_.size() && IsPlain(rtf_[end])) ++end;
      Token token{.kind = Token::Kind::Text, .text = rtf_.substr(at_, end - at_)};
      at_ = end;
      return token;
    }
    ++at_;
    switch (unit) {
      case u'{':
        return {.kind = Token::Kind::Open};
      case u'}':
        return {.kind = Token::Kind::Close};
      case u'\\':
        return ControlToken();
      case u'\r':
      case u'\n':
      case u'\0':
        break;
      default:
        return {.kind = Token::Kind::Unit, .unit = unit};
    }
  }
  return {};
}

Token Tokens::ControlToken() {
  if (at_ >= rtf_.size()) return {};
  const char16_t unit = rtf_[at_];
  if (IsAsciiLetter(unit)) return WordToken();
  ++at_;
  if (unit == u'\'') {
    const int high = at_ < rtf_.size() ? HexDigitValue(rtf_[at_]) : -1;
    const int low = at_ + 1 < rtf_.size() ? HexDigitValue(rtf_[at_ + 1]) : -1;
    // Of a damaged escape only the two characters go: what stands after them is text.
    if (high < 0 || low < 0) return {.kind = Token::Kind::Symbol, .unit = unit};
    at_ += 2;
    return {.kind = Token::Kind::Byte, .unit = static_cast<char16_t>(high * 16 + low)};
  }
  if (unit == u'\r' && at_ < rtf_.size() && rtf_[at_] == u'\n') ++at_;
  return {.kind = Token::Kind::Symbol, .unit = unit};
}

Token Tokens::WordToken() {
  const std::size_t begin = at_;
  while (at_ < rtf_.size() && IsAsciiLetter(rtf_[at_])) ++at_;
  Token token{.kind = Token::Kind::Word, .text = rtf_.substr(begin, at_ - begin)};
  std::size_t digits = at_;
  const bool negative = digits < rtf_.size() && rtf_[digits] == u'-';
  if (negative) ++digits;
  if (digits < rtf_.size() && IsAsciiDigit(rtf_[digits])) {
    constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
    std::int64_t value = 0;
    for (at_ = digits; at_ < rtf_.size() && IsAsciiDigit(rtf_[at_]); ++at_) {
      value = std::min(kMost, value * 10 + (rtf_[at_] - u'0'));
    }
    token.has_number = true;
    token.number = static_cast<std::int32_t>(negative ? -value : value);
  }
  if (at_ < rtf_.size() && rtf_[at_] == u' ') ++at_;
  token.keyword = FindKeyword(token.text);
  if (token.keyword == Keyword::Bin) {
    const std::size_t length =
        std::min(rtf_.size() - at_, static_cast<std::size_t>(std::max(token.number, std::int32_t{0})));
    token.kind = Token::Kind::Binary;
    token.text = rtf_.substr(at_, length);
    at_ += length;
  }
  return token;
}

void Tokens::SkipGroup() {
  std::size_t depth = 0;
  while (at_ < rtf_.size()) {
    const char16_t unit = rtf_[at_];
    if (unit == u'{') {
      ++depth;
    } else if (unit == u'}') {
      if (depth == 0) return;
      --depth;
    } else if (unit == u'\\') {
      ++at_;
      if (at_ < rtf_.size() && rtf_[at_] == u'b') {
        WordToken();  // binary data may hold braces
        continue;
      }
    }
    if (at_ < rtf_.size()) ++at_;
  }
}

}  // namespace quillary::platform::rtf

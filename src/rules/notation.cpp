#include "rules/notation.h"

#include <algorithm>

namespace quillary::rules {
namespace {

struct Range {
  char16_t first;
  char16_t last;
};

constexpr Range kInvisible[] = {
    {0x0000, 0x001F}, {0x007F, 0x00A0}, {0x00AD, 0x00AD}, {0x034F, 0x034F}, {0x061C, 0x061C},
    {0x115F, 0x1160}, {0x1680, 0x1680}, {0x17B4, 0x17B5}, {0x180B, 0x180F}, {0x2000, 0x200F},
    {0x2028, 0x202F}, {0x205F, 0x206F}, {0x2800, 0x2800}, {0x3000, 0x3000}, {0x3164, 0x3164},
    {0xD800, 0xF8FF}, {0xFE00, 0xFE0F}, {0xFEFF, 0xFEFF}, {0xFFA0, 0xFFA0}, {0xFFF0, 0xFFFB},
    {0xFFFE, 0xFFFF},
};

bool IsHexDigit(char16_t unit) {
  return (unit >= u'0' && unit <= u'9') || (unit >= u'a' && unit <= u'f') || (unit >= u'A' && unit <= u'F');
}

bool IsNameUnit(char16_t unit) {
  return (unit >= u'a' && unit <= u'z') || (unit >= u'0' && unit <= u'9') || unit == u'_';
}

// Whether `close` stands after one or more units of the kind.
bool Encloses(TextView rest, bool (*kind)(char16_t), char16_t close) {
  const auto end = std::find_if_not(rest.begin(), rest.end(), kind);
  return end != rest.begin() && end != rest.end() && *end == close;
}

// Whether the unit at `at` would be read as something else than itself.
bool IsTakenForAnother(TextView literal, std::size_t at) {
  const TextView rest = literal.substr(at + 1);
  switch (literal[at]) {
    case u'⟨':
    case u'⟩':
    case u'␣':
    case u'⏎':
    case u'␍':
    case u'␊':
      return true;
    case u'\\':
      return rest.starts_with(u"u{") && Encloses(rest.substr(2), IsHexDigit, u'}');
    case u'‹':
      return Encloses(rest, IsNameUnit, u'›');
    case u'<':  // The two placeholders that are never plain text.
      return rest.starts_with(u"n>") || rest.starts_with(u"m>");
    default:
      return false;
  }
}

// Whether a pair of units that stand for one character begins at `at`.
bool IsPair(TextView text, std::size_t at) {
  return at + 1 < text.size() && (text[at] & 0xFC00) == 0xD800 && (text[at + 1] & 0xFC00) == 0xDC00;
}

Text ByNumber(char16_t unit) {
  Text digits;
  for (unsigned rest = unit; rest != 0 || digits.empty(); rest >>= 4) {
    digits.insert(digits.begin(), u"0123456789ABCDEF"[rest & 0xF]);
  }
  return u"\\u{" + digits + u"}";
}

Text ModeWord(Compare mode) { return mode == Compare::Binary ? u" binary" : u" ignore-case"; }

}  // namespace

bool IsInvisible(TextView text, std::size_t at) {
  if (IsPair(text, at) || (at > 0 && IsPair(text, at - 1))) return false;
  return std::any_of(std::begin(kInvisible), std::end(kInvisible),
                     [&](Range range) { return text[at] >= range.first && text[at] <= range.last; });
}

Text Written(TextView literal) {
  Text written = u"⟨";
  for (std::size_t at = 0; at < literal.size(); ++at) {
    const char16_t unit = literal[at];
    if (literal.substr(at).starts_with(u"\r\n")) {
      written += u'⏎';
      ++at;
    } else if (unit == u' ' || unit == u'\r' || unit == u'\n') {
      written += unit == u' ' ? u'␣' : unit == u'\r' ? u'␍' : u'␊';
    } else if (IsInvisible(literal, at) || IsTakenForAnother(literal, at)) {
      written += ByNumber(unit);
    } else {
      written += unit;
    }
  }
  return written + u'⟩';
}

Text Written(const Condition& condition) {
  if (condition.kind == Condition::Kind::ShorterThan) return u"shorter than " + Decimal(condition.units);
  return (condition.kind == Condition::Kind::HoldsNot ? u"not " : u"") + Written(condition.find) +
         ModeWord(condition.mode);
}

Text Written(const Rule& rule) {
  return Written(rule.find) + u" -> " + Written(rule.with) + ModeWord(rule.mode) +
         (rule.limit < 0 ? Text() : u" first " + Decimal(rule.limit));
}

}  // namespace quillary::rules

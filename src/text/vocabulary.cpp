#include <algorithm>
#include <charconv>
#include <limits>

#include "text/ascii.h"
#include "text/case_folding.h"
#include "text/failure.h"
#include "text/limits.h"
#include "text/search.h"
#include "text/text.h"

namespace quillary {
namespace {

// The count stops here: the result 181 means "181 or more".
constexpr std::int32_t kOccurrenceCap = 180;

[[noreturn]] void Fail(Failure::Kind kind) { throw Failure(kind); }

template <char16_t (*unit_of)(char16_t)>
Text MapUnits(TextView text) {
  Text result(text);
  for (char16_t& unit : result) {
    if (unit >= 0x80 || IsAsciiLetter(unit)) unit = unit_of(unit);
  }
  return result;
}

std::int64_t DigitsToNumber(TextView digits) {
  std::int64_t value = 0;
  for (const char16_t unit : digits) {
    value = value * 10 + (unit - u'0');
    if (value > std::numeric_limits<std::int32_t>::max() * std::int64_t{4}) Fail(Failure::Kind::Overflow);
  }
  return value;
}

// A numeric text as a whole number, rounded half to even, as an assignment to
// a whole number rounds.
std::int64_t ToWholeNumber(TextView text) {
  if (!IsNumeric(text)) Fail(Failure::Kind::Type);
  text = TrimView(text);
  const bool negative = text.front() == u'-';
  if (text.front() == u'-' || text.front() == u'+') text.remove_prefix(1);
  const std::size_t point = text.find(u'.');
  std::int64_t whole = DigitsToNumber(text.substr(0, point));
  if (point != TextView::npos) {
    const TextView fraction = text.substr(point + 1);
    const bool beyond_half =
        !fraction.empty() && (fraction[0] > u'5' ||
                              (fraction[0] == u'5' && fraction.find_first_not_of(u'0', 1) != TextView::npos));
    const bool half = !fraction.empty() && fraction[0] == u'5' && !beyond_half;
    if (beyond_half || (half && whole % 2 == 1)) ++whole;
  }
  return negative ? -whole : whole;
}

}  // namespace

bool ReplaceIn(Text& text, TextView find, TextView with, Compare mode, std::int32_t limit) {
  if (find.empty() || text.empty() || limit == 0) return false;
  const Finder finder(find, mode);
  std::size_t hit = finder.Next(text, 0);
  if (hit == Finder::npos) return false;
  Text result;
  result.reserve(text.size() + (with.size() > find.size() ? with.size() : 0));
  std::size_t from = 0;
  while (hit != Finder::npos) {
    result.append(text, from, hit - from).append(with);
    from = hit + find.size();
    if (limit > 0 && --limit == 0) break;
    hit = finder.Next(text, from);
  }
  if (result.size() + (text.size() - from) > limits::kWorkingUnits) {
    throw LimitReached(LimitReached::Limit::Growth);
  }
  result.append(text, from, Text::npos);
  text = std::move(result);
  return true;
}

Text ReplaceAll(TextView text, TextView find, TextView with, Compare mode, std::int32_t limit) {
  Text result(text);
  ReplaceIn(result, find, with, mode, limit);
  return result;
}

std::int32_t Length(TextView text) {
  if (text.size() > static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
    throw LimitReached(LimitReached::Limit::Growth);
  }
  return static_cast<std::int32_t>(text.size());
}

std::int32_t FindText(std::int32_t start, TextView text, TextView find, Compare mode) {
  if (start < 1) Fail(Failure::Kind::Argument);
  if (text.empty() || start > Length(text)) return 0;
  if (find.empty()) return start;
  const std::size_t hit = Finder(find, mode).Next(text, static_cast<std::size_t>(start) - 1);
  return hit == Finder::npos ? 0 : static_cast<std::int32_t>(hit) + 1;
}

bool Holds(TextView text, TextView find, Compare mode) { return FindText(1, text, find, mode) > 0; }

std::int32_t CountOccurrences(TextView text, TextView find, Compare mode) {
  if (text.empty()) return 0;
  // An empty find is found wherever the search starts.
  if (find.empty()) return std::min(Length(text), kOccurrenceCap + 1);
  const Finder finder(find, mode);
  std::int32_t count = 0;
  for (std::size_t hit = finder.Next(text, 0); hit != Finder::npos; hit = finder.Next(text, hit + 1)) {
    if (++count > kOccurrenceCap) break;
  }
  return count;
}

std::int32_t LastPosition(TextView text, TextView find, Compare mode) {
  if (find.empty()) return Length(text);
  const Finder finder(find, mode);
  std::int32_t last = 0;
  YieldToHost();
  for (std::size_t hit = finder.Next(text, 0); hit != Finder::npos; hit = finder.Next(text, hit + 1)) {
    YieldToHost();
    last = static_cast<std::int32_t>(hit) + 1;
  }
  return last;
}

std::int16_t RoundNumberText(TextView text) {
  Text number = Trim(text);
  ReplaceIn(number, u",", u".", Compare::IgnoreCase);
  ReplaceIn(number, u"-", u"", Compare::IgnoreCase);
  ReplaceIn(number, u" ", u"", Compare::IgnoreCase);
  ReplaceIn(number, u"\\", u"", Compare::IgnoreCase);
  if (!Holds(number, u".")) number += u".00";
  if (!IsNumeric(number)) return 0;
  const std::size_t point = number.find(u'.');
  TextView whole = TextView(number).substr(0, point);
  const TextView fraction = TextView(number).substr(point + 1);
  std::int64_t value = whole.empty() ? 0 : ToInteger16(whole);
  if (IsNumeric(fraction) && fraction[0] >= u'5' && fraction[0] <= u'9') ++value;
  if (value > std::numeric_limits<std::int16_t>::max()) Fail(Failure::Kind::Overflow);
  return static_cast<std::int16_t>(value);
}

Text PercentToByte(Text& text) {
  if (Holds(text, u"%")) {
    text = Trim(ReplaceAll(text, u"%", u""));
    const double part = RoundNumberText(text) / 100.0 * 255.0;
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof digits, part).ptr;
    text = Decimal(RoundNumberText(Text(digits, end)));
  }
  text = Hex16(RoundNumberText(text));
  if (text.size() == 1) text.insert(0, 1, u'0');
  return text;
}

std::int16_t FindInList(const TextList& list, TextView name) {
  if (IsListEmpty(list)) return 0;
  for (std::int32_t i = 0; i <= list.upper() && i <= std::numeric_limits<std::int16_t>::max(); ++i) {
    if (list[i] == name) return static_cast<std::int16_t>(i);
  }
  return 0;
}

bool IsListEmpty(const TextList& list) { return !list.sized(); }

Text ExtractElement(TextView text, TextView tag) {
  const Text upper = ToUpper(text);
  const Text opening = u"<" + ToUpper(tag);
  const Text closing = u"</" + ToUpper(tag);
  const std::int32_t first = FindText(1, upper, opening);
  std::int32_t depth = first > 0 ? 1 : 0;
  std::int32_t last = 0;
  std::int32_t close = FindText(first + 1, upper, closing);
  std::int32_t open = FindText(first + 1, upper, opening);
  while (depth > 0) {
    if (open == 0 || open >= close) {
      --depth;
      if (close > 0) last = close;
      close = FindText(last + 1, upper, closing);
    } else {
      ++depth;
      last = open;
      open = FindText(last + 1, upper, opening);
    }
  }
  return Left(text, FindText(last, upper, u">"));
}

void YieldToHost() {}

Text Left(TextView text, std::int32_t count) {
  if (count < 0) Fail(Failure::Kind::Argument);
  return Text(text.substr(0, static_cast<std::size_t>(count)));
}

Text Right(TextView text, std::int32_t count) {
  if (count < 0) Fail(Failure::Kind::Argument);
  const auto units = static_cast<std::size_t>(count);
  return Text(units >= text.size() ? text : text.substr(text.size() - units));
}

TextView MidView(TextView text, std::int32_t start) {
  return MidView(text, start, std::numeric_limits<std::int32_t>::max());
}

TextView MidView(TextView text, std::int32_t start, std::int32_t count) {
  if (start < 1 || count < 0) Fail(Failure::Kind::Argument);
  const std::size_t offset = static_cast<std::size_t>(start) - 1;
  if (offset >= text.size()) return {};
  return text.substr(offset, static_cast<std::size_t>(count));
}

Text Mid(TextView text, std::int32_t start) { return Text(MidView(text, start)); }
Text Mid(TextView text, std::int32_t start, std::int32_t count) { return Text(MidView(text, start, count)); }

Text Joined(std::initializer_list<TextView> parts) {
  Text whole;
  for (const TextView part : parts) whole += part;
  return whole;
}

TextView TrimView(TextView text) {
  const std::size_t first = text.find_first_not_of(u' ');
  if (first == TextView::npos) return {};
  return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

Text Trim(TextView text) { return Text(TrimView(text)); }

Text ToUpper(TextView text) { return MapUnits<UpperUnit>(text); }
Text ToLower(TextView text) { return MapUnits<LowerUnit>(text); }

bool Equal(TextView left, TextView right, Compare mode) {
  if (mode == Compare::Binary) return left == right;
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char16_t a, char16_t b) { return a == b || FoldUnit(a) == FoldUnit(b); });
}

bool IsNumeric(TextView text) {
  text = TrimView(text);
  if (!text.empty() && (text.front() == u'-' || text.front() == u'+')) text.remove_prefix(1);
  bool digits = false;
  bool point = false;
  for (const char16_t unit : text) {
    if (IsAsciiDigit(unit)) {
      digits = true;
    } else if (unit == u'.' && !point) {
      point = true;
    } else {
      return false;
    }
  }
  return digits;
}

std::int32_t ToInteger32(TextView text) {
  const std::int64_t value = ToWholeNumber(text);
  if (value < std::numeric_limits<std::int32_t>::min() || value > std::numeric_limits<std::int32_t>::max()) {
    Fail(Failure::Kind::Overflow);
  }
  return static_cast<std::int32_t>(value);
}

std::int16_t ToInteger16(TextView text) {
  const std::int64_t value = ToWholeNumber(text);
  if (value < std::numeric_limits<std::int16_t>::min() || value > std::numeric_limits<std::int16_t>::max()) {
    Fail(Failure::Kind::Overflow);
  }
  return static_cast<std::int16_t>(value);
}

std::int32_t HalfToEven(std::int32_t value) {
  const std::int32_t half = value / 2;
  if (value % 2 == 0) return half;
  if (half % 2 == 0) return half;
  return value > 0 ? half + 1 : half - 1;
}

Text Hex(std::int32_t value) {
  char digits[16];
  const auto end = std::to_chars(digits, digits + sizeof digits, static_cast<std::uint32_t>(value), 16).ptr;
  return ToUpper(Text(digits, end));
}

Text Hex16(std::int16_t value) { return Hex(static_cast<std::uint16_t>(value)); }

Text Decimal(std::int64_t value) {
  char digits[24];
  const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
  return Text(digits, end);
}

}  // namespace quillary

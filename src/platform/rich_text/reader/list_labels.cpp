#include "platform/rich_text/reader/list_labels.h"

#include <algorithm>

#include "text/ascii.h"

namespace quillary::platform::rtf {
namespace {

constexpr std::size_t kLongestAffix = 8;

bool IsLetterOrDigit(char16_t unit) {
  return IsAsciiAlphanumeric(unit) || (unit >= 0xC0 && unit < 0x2000) || (unit >= 0x3040 && unit < 0xD800);
}

/// Up to 899: no label goes further.
Text Roman(std::int32_t number) {
  struct Numeral {
    std::int32_t value;
    TextView text;
  };
  constexpr Numeral kNumerals[] = {{500, u"D"}, {400, u"CD"}, {100, u"C"}, {90, u"XC"},
                                   {50, u"L"},  {40, u"XL"},  {10, u"X"},  {9, u"IX"},
                                   {5, u"V"},   {4, u"IV"},   {1, u"I"}};
  Text result;
  for (const Numeral& numeral : kNumerals) {
    for (; number >= numeral.value; number -= numeral.value) result += numeral.text;
  }
  return result;
}

/// a to z, then aa to zz and so on, as word processors count.
Text Letters(std::int32_t number) {
  const auto repeat = static_cast<std::size_t>((number - 1) / 26 + 1);
  return Text(repeat, static_cast<char16_t>(u'A' + (number - 1) % 26));
}

}  // namespace

Text NumberText(std::int32_t number, NumberStyle style) {
  constexpr std::int32_t kLargestWord = 780;  // beyond that letters and Roman numbers are of no use
  if (style == NumberStyle::Decimal || number < 1 || number > kLargestWord) return Decimal(number);
  switch (style) {
    case NumberStyle::UpperLetter:
      return Letters(number);
    case NumberStyle::LowerLetter:
      return ToLower(Letters(number));
    case NumberStyle::UpperRoman:
      return Roman(number);
    default:
      return ToLower(Roman(number));
  }
}

bool HasNumber(const Text& label) { return std::any_of(label.begin(), label.end(), IsLetterOrDigit); }

Text Affix(TextView text) { return Trim(TrimView(text).substr(0, kLongestAffix)); }

void SplitLabel(const Text& label, ListFormat& format) {
  const auto first = std::find_if(label.begin(), label.end(), IsLetterOrDigit);
  const auto last = std::find_if(label.rbegin(), label.rend(), IsLetterOrDigit).base();
  if (first == label.end()) return;
  format.before = Affix({label.begin(), first});
  format.after = Affix({last, label.end()});
}

}  // namespace quillary::platform::rtf

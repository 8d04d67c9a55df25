#include "platform/rich_text/reader/rtf_list_tables.h"

#include <algorithm>
#include <iterator>

#include "text/ascii.h"

namespace quillary::platform::rtf {
namespace {

constexpr std::int32_t kBulletKind = 23;
constexpr std::int32_t kNoNumberKind = 255;
constexpr std::size_t kLongestAffix = 8;
constexpr std::size_t kLongestLevelText = 64;
constexpr std::int32_t kHighestStart = 32767;

NumberStyle StyleOf(std::int32_t kind) {
  switch (kind) {
    case 1:
      return NumberStyle::UpperRoman;
    case 2:
      return NumberStyle::LowerRoman;
    case 3:
      return NumberStyle::UpperLetter;
    case 4:
      return NumberStyle::LowerLetter;
    default:
      return NumberStyle::Decimal;
  }
}

bool IsLetterOrDigit(char16_t unit) {
  return IsAsciiAlphanumeric(unit) || (unit >= 0xC0 && unit < 0x2000) || (unit >= 0x3040 && unit < 0xD800);
}

Text Roman(std::int32_t number) {
  struct Sign {
    std::int32_t value;
    TextView text;
  };
  constexpr Sign kSigns[] = {{1000, u"M"}, {900, u"CM"}, {500, u"D"}, {400, u"CD"}, {100, u"C"},
                             {90, u"XC"},  {50, u"L"},   {40, u"XL"}, {10, u"X"},   {9, u"IX"},
                             {5, u"V"},    {4, u"IV"},   {1, u"I"}};
  Text result;
  for (const Sign& sign : kSigns) {
    for (; number >= sign.value; number -= sign.value) result += sign.text;
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

void ListTables::ReadTableWord(const Token& token) {
  switch (token.keyword) {
    case Keyword::List:
      levels_ = {};
      level_count_ = 0;
      break;
    case Keyword::Listlevel:
      ++level_count_;
      break;
    case Keyword::Listid:
      lists_[token.number] = levels_;
      break;
    default:
      if (level_count_ == 0 || level_count_ > kLevels) break;
      if (token.keyword == Keyword::Levelnfc) levels_[level_count_ - 1].number_kind = token.number;
      if (token.keyword == Keyword::Levelstartat) {
        levels_[level_count_ - 1].start = std::clamp(token.number, 0, kHighestStart);
      }
  }
}

void ListTables::SetLevelText(const Text& text) {
  if (level_count_ == 0 || level_count_ > kLevels || text.empty()) return;
  Text& target = levels_[level_count_ - 1].text;
  target = text.substr(1, kLongestLevelText);  // behind its length
  if (!target.empty() && target.back() == u';') target.pop_back();
}

void ListTables::ReadOverrideWord(const Token& token) {
  switch (token.keyword) {
    case Keyword::Listoverride:
      override_list_ = 0;
      break;
    case Keyword::Listid:
      override_list_ = token.number;
      break;
    case Keyword::Ls:
      overrides_[token.number].list = override_list_;
      break;
    default:
      break;
  }
}

Text ListTables::ComputeLabel(const Levels& levels, const Override& override, std::size_t level) const {
  Text label;
  for (const char16_t unit : levels[level].text) {
    if (unit < kLevels) {
      label +=
          NumberText(std::max(override.counters[unit], std::int32_t{1}), StyleOf(levels[unit].number_kind));
    } else if (unit >= u' ') {
      label += unit;
    }
  }
  return label;
}

ListTables::Item ListTables::NextItem(std::int32_t override, std::int32_t level, bool has_label,
                                      const Text& label) {
  Item item;
  const auto index = std::min(static_cast<std::size_t>(std::max(level, std::int32_t{0})), kLevels - 1);
  Override& state = overrides_[override];
  const auto list = lists_.find(state.list);
  if (list == lists_.end()) {
    // The list is not defined: what its producer wrote tells what it is.
    item.is_item = has_label;
    item.format.bullet = !HasNumber(label);
    item.label.text = label;
    if (!item.format.bullet) SplitLabel(label, item.format);
    return item;
  }
  const Level& definition = list->second[index];
  std::int32_t& counter = state.counters[index];
  counter = counter == 0 ? definition.start : counter + 1;
  std::fill(state.counters.begin() + static_cast<std::ptrdiff_t>(index) + 1, state.counters.end(), 0);
  const bool shows_number = has_label ? !label.empty() : !definition.text.empty();
  item.is_item =
      definition.number_kind == kBulletKind || (definition.number_kind != kNoNumberKind && shows_number);
  item.format.bullet = definition.number_kind == kBulletKind;
  if (item.format.bullet) return item;
  item.format.style = StyleOf(definition.number_kind);
  item.label.text = has_label ? label : Trim(ComputeLabel(list->second, state, index));
  item.label.ordinal = counter;
  SplitLabel(item.label.text, item.format);
  return item;
}

}  // namespace quillary::platform::rtf

#include "platform/rich_text/reader/list_tables.h"

#include <algorithm>

#include "platform/rich_text/reader/list_labels.h"

namespace quillary::platform::rtf {
namespace {

constexpr std::int32_t kBulletKind = 23;
constexpr std::int32_t kNoNumberKind = 255;
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

}  // namespace

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
    case Keyword::Levelnfc:
      if (Level* const level = OpenLevel()) level->number_kind = token.number;
      break;
    case Keyword::Levelstartat:
      if (Level* const level = OpenLevel()) level->start = std::clamp(token.number, 0, kHighestStart);
      break;
    default:
      break;
  }
}

ListTables::Level* ListTables::OpenLevel() {
  return level_count_ == 0 || level_count_ > kLevels ? nullptr : &levels_[level_count_ - 1];
}

void ListTables::SetLevelText(const Text& text) {
  Level* const level = OpenLevel();
  if (level == nullptr || text.empty()) return;
  level->text = text.substr(1, kLongestLevelText);  // after its length
  if (level->text.ends_with(u';')) level->text.pop_back();
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

Text ListTables::ComputeLabel(const Levels& levels, const Override& override, std::size_t level) {
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

ListTables::Item ListTables::NextItem(std::int32_t override, std::int32_t level,
                                      const std::optional<Text>& label) {
  Item item;
  const auto index = std::min(static_cast<std::size_t>(std::max(level, std::int32_t{0})), kLevels - 1);
  Override& state = overrides_[override];
  const auto list = lists_.find(state.list);
  if (list == lists_.end()) {
    // The list is not defined: what its producer wrote tells what it is.
    item.is_item = label.has_value();
    item.label.text = label.value_or(Text());
    item.format.bullet = !HasNumber(item.label.text);
    if (!item.format.bullet) SplitLabel(item.label.text, item.format);
    return item;
  }
  const Level& definition = list->second[index];
  std::int32_t& counter = state.counters[index];
  counter = counter == 0 ? definition.start : counter + 1;
  std::fill(state.counters.begin() + static_cast<std::ptrdiff_t>(index) + 1, state.counters.end(), 0);
  const bool shows_number = label ? !label->empty() : !definition.text.empty();
  item.is_item =
      definition.number_kind == kBulletKind || (definition.number_kind != kNoNumberKind && shows_number);
  item.format.bullet = definition.number_kind == kBulletKind;
  if (item.format.bullet) return item;
  item.format.style = StyleOf(definition.number_kind);
  item.label.text = label ? *label : Trim(ComputeLabel(list->second, state, index));
  item.label.ordinal = counter;
  SplitLabel(item.label.text, item.format);
  return item;
}

}  // namespace quillary::platform::rtf

// The list tables of a word processor's RTF, and the numbers of the items
// that refer to them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <unordered_map>

#include "platform/rich_text/model/document_model.h"
#include "platform/rich_text/reader/tokens.h"

namespace quillary::platform::rtf {

class ListTables {
 public:
  static constexpr std::size_t kLevels = 9;

  /// What stands in the list table and in the table of overrides.
  void ReadTableWord(const Token& token);
  void ReadOverrideWord(const Token& token);
  /// The text of a level: the place of a number is a unit below 9.
  void SetLevelText(const Text& text);

  struct Item {
    bool is_item = false;
    ListFormat format;
    Label label;
  };
  /// The next item of list `override` at `level`. `label` is the item's number
  /// as its producer wrote it; where there is none it is computed.
  Item NextItem(std::int32_t override, std::int32_t level, const std::optional<Text>& label);

 private:
  struct Level {
    std::int32_t number_kind = 0;
    std::int32_t start = 1;
    Text text;
  };
  using Levels = std::array<Level, kLevels>;
  struct Override {
    std::int32_t list = 0;
    std::array<std::int32_t, kLevels> counters{};  // 0 before the first item
  };

  /// The level that is being read; null where there is none, or one beyond the last.
  Level* OpenLevel();
  static Text ComputeLabel(const Levels& levels, const Override& override, std::size_t level);

  std::unordered_map<std::int32_t, Levels> lists_;
  std::unordered_map<std::int32_t, Override> overrides_;
  Levels levels_;  // being read
  std::size_t level_count_ = 0;
  std::int32_t override_list_ = 0;  // being read
};

}  // namespace quillary::platform::rtf

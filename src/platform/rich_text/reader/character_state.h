// The character formatting that holds in a group of an RTF text, and the words
// that change it.
#pragma once

#include <cstdint>

#include "platform/rich_text/reader/tokens.h"

namespace quillary::platform::rtf {

/// Letters of a right-to-left run, and those of the Far East, have formatting
/// of their own beside that of the Latin ones.
enum class Script : std::uint8_t { Latin, FarEast, RightToLeft };

struct CharacterState {
  std::int32_t font = -1;  // by its number in the table; -1 is the default font
  std::int32_t far_east_font = -1;
  std::int32_t associated_font = -1;
  std::int32_t colour = -1;  // by its number in the table; -1 was never stated
  std::int32_t highlight = -1;
  std::int32_t background = -1;
  std::uint16_t size = 24;
  std::uint16_t associated_size = 0;  // 0 was never stated
  std::uint16_t effects = 0;
  std::uint16_t associated_effects = 0;
  std::uint16_t language = 0;  // 0 is that of the document
  std::int16_t spacing = 0;
  std::int16_t rise = 0;
  Script script = Script::Latin;
  bool associated = false;  // weight and slope were stated for right-to-left letters
  bool capitals = false;
  bool hidden = false;
  bool deleted = false;
  bool direct = false;  // the characters have formatting beyond their style

  /// The font of the letters that follow.
  std::int32_t Font() const;
  std::uint16_t Size() const;
  std::uint16_t Effects() const;
};

/// Takes a word that formats letters; false for any other word.
bool ReadCharacterWord(const Token& token, CharacterState& state);

}  // namespace quillary::platform::rtf

// The names of characters in HTML5.
#pragma once

#include <cstddef>

#include "text/text.h"

namespace quillary::page_reader {

struct CharacterName {
  TextView name;  // without "&" and ";"
  char32_t character;
  char32_t second = 0;  // of the few names that stand for two characters
  bool bare = false;    // whether it is read without its ";" too
};

struct CharacterNameMatch {
  const CharacterName* name = nullptr;  // lives for ever; null if there is none
  std::size_t length = 0;               // with its ";", if it has one
};

/// The longest name at the beginning of `text`, which is what follows a "&".
CharacterNameMatch MatchCharacterName(TextView text);

}  // namespace quillary::page_reader

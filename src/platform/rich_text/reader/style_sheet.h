// The styles of an RTF text, which hold for paragraphs without formatting of their own.
#pragma once

#include <cstdint>
#include <unordered_map>

#include "platform/rich_text/reader/character_state.h"
#include "platform/rich_text/reader/paragraph_state.h"

namespace quillary::platform::rtf {

class StyleSheet {
 public:
  /// Takes a style in the formatting at the end of its group.
  void Add(const CharacterState& character, const ParagraphState& paragraph);

  /// `own`, or the characters of the paragraph's style where `own` has no direct formatting.
  const CharacterState& Resolve(const CharacterState& own, const ParagraphState& paragraph) const;
  /// The same of the paragraph. Its list and its direction are its own.
  ParagraphFormat Resolve(const ParagraphState& own) const;

 private:
  struct Style {
    CharacterState character;
    ParagraphState paragraph;
  };

  const Style* Find(const ParagraphState& paragraph) const;

  std::unordered_map<std::int32_t, Style> styles_;
};

}  // namespace quillary::platform::rtf

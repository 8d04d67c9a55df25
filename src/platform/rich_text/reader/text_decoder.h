// The text of an RTF document in reading order: bytes become characters, what
// stands for Unicode characters in other readers is passed over, and the rest
// goes to the body or to the destination of the deepest group.
#pragma once

#include <cstdint>

#include "platform/rich_text/reader/body.h"
#include "platform/rich_text/reader/byte_text.h"
#include "platform/rich_text/reader/destinations.h"
#include "platform/rich_text/reader/font_table.h"
#include "platform/rich_text/reader/groups.h"
#include "platform/rich_text/reader/keywords.h"

namespace quillary::platform::rtf {

class TextDecoder {
 public:
  TextDecoder(const Groups& groups, const FontTable& fonts, Body& body, Destinations& destinations)
      : groups_(groups), fonts_(fonts), body_(body), destinations_(destinations) {}

  void ReadPlain(TextView plain);
  void ReadByte(unsigned char byte);
  void ReadUnit(char16_t unit);
  /// Takes the number of a \u word; what stands for it follows.
  void ReadUnicode(std::int32_t number);
  void ReadBinary(TextView bytes);
  /// Takes a word that names a character; false for any other.
  bool ReadCharacterWord(Keyword keyword);

  /// Adds text to the body; in another destination it is left out.
  void AddText(TextView text);
  void AddCharacter(char16_t unit);
  /// Adds a tab or a line break.
  void AddStructure(char16_t character);

  /// Hands on the bytes that are held but for the first of a pair, whose second may still come.
  void FlushComplete();
  /// Hands on all bytes that are held.
  void Flush();
  void DropBytes() { bytes_.Clear(); }

  /// Whether what is read now stands for a Unicode character.
  bool InFallback() const { return fallback_left_ > 0; }
  void BeginFallback() { fallback_left_ = groups_.Top().fallback_length; }
  void EndFallback() { fallback_left_ = 0; }
  /// Passes over one character that stands for a Unicode character; false if there is none.
  bool SkipFallback() {
    if (!InFallback()) return false;
    --fallback_left_;
    return true;
  }

 private:
  void AddToDestination(TextView text);

  const Groups& groups_;
  const FontTable& fonts_;
  Body& body_;
  Destinations& destinations_;
  ByteText bytes_;
  std::int32_t fallback_left_ = 0;  // characters still to be passed over after \u
};

}  // namespace quillary::platform::rtf

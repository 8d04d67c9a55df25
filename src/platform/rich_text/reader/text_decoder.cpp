#include "platform/rich_text/reader/text_decoder.h"

#include <algorithm>

#include "text/encodings.h"

namespace quillary::platform::rtf {
namespace {

/// The character that a word names; 0 for any other word.
char16_t NamedCharacter(Keyword keyword) {
  switch (keyword) {
    case Keyword::Tab:
      return structure::kTab;
    case Keyword::Emdash:
      return 0x2014;
    case Keyword::Endash:
      return 0x2013;
    case Keyword::Emspace:
      return 0x2003;
    case Keyword::Enspace:
      return 0x2002;
    case Keyword::Qmspace:
      return 0x2005;
    case Keyword::Bullet:
      return 0x2022;
    case Keyword::Lquote:
      return 0x2018;
    case Keyword::Rquote:
      return 0x2019;
    case Keyword::Ldblquote:
      return 0x201C;
    case Keyword::Rdblquote:
      return 0x201D;
    case Keyword::Zwj:
      return 0x200D;
    case Keyword::Zwnj:
      return 0x200C;
    case Keyword::Ltrmark:
      return 0x200E;
    case Keyword::Rtlmark:
      return 0x200F;
    default:
      return 0;
  }
}

}  // namespace

void TextDecoder::ReadPlain(TextView plain) {
  if (InFallback()) {
    const std::size_t dropped = std::min(plain.size(), static_cast<std::size_t>(fallback_left_));
    fallback_left_ -= static_cast<std::int32_t>(dropped);
    plain.remove_prefix(dropped);
  }
  if (!plain.empty() && !bytes_.IsEmpty() && bytes_.TakesAsSecond(plain.front())) {
    ReadByte(static_cast<unsigned char>(plain.front()));
    plain.remove_prefix(1);
  }
  if (plain.empty()) return;
  if (groups_.InBody()) {
    AddText(plain);
  } else {
    AddToDestination(plain);
  }
}

void TextDecoder::ReadByte(unsigned char byte) {
  if (SkipFallback()) return;
  if (!groups_.InBody() && destinations_.ReadByte(byte)) return;
  const std::int32_t font = groups_.Top().character.Font();
  if (fonts_.IsSymbol(font)) {
    if (byte >= u' ') AddCharacter(static_cast<char16_t>(kSymbolBase + byte));
    return;
  }
  const int code_page = fonts_.CodePage(font);
  if (!bytes_.IsEmpty() && bytes_.CodePage() != code_page) Flush();
  if (code_page == kWesternPage) {
    AddCharacter(WesternCharacter(byte));
  } else {
    bytes_.Add(byte, code_page);
  }
}

void TextDecoder::ReadUnit(char16_t unit) {
  const int byte = RawByte(unit);
  if (byte >= 0x80) return ReadByte(static_cast<unsigned char>(byte));
  if (SkipFallback()) return;
  if (unit == u'\t') {
    AddStructure(structure::kTab);
  } else if (byte < 0) {
    AddCharacter(unit);
  }
}

void TextDecoder::ReadUnicode(std::int32_t number) {
  constexpr std::int32_t kHighest = 0x10FFFF;
  if (number < 0) number += 0x10000;
  Flush();
  BeginFallback();
  if (number < 0 || number > kHighest) return;
  if (number == u'\t') {
    AddStructure(structure::kTab);
  } else if (number > 0xFFFF) {
    AddCharacter(static_cast<char16_t>(0xD800 + ((number - 0x10000) >> 10)));
    AddCharacter(static_cast<char16_t>(0xDC00 + ((number - 0x10000) & 0x3FF)));
  } else {
    AddCharacter(static_cast<char16_t>(number));
  }
}

void TextDecoder::ReadBinary(TextView bytes) {
  if (!SkipFallback()) destinations_.ReadBinary(bytes);
}

bool TextDecoder::ReadCharacterWord(Keyword keyword) {
  const char16_t unit = NamedCharacter(keyword);
  if (unit == 0) return false;
  if (SkipFallback()) return true;
  if (unit == structure::kTab) {
    AddStructure(unit);
  } else {
    Flush();
    AddCharacter(unit);
  }
  return true;
}

void TextDecoder::AddText(TextView text) {
  Flush();
  if (groups_.InBody()) body_.AddText(text);
}

void TextDecoder::AddCharacter(char16_t unit) {
  if (groups_.InBody()) {
    body_.AddCharacter(unit);
  } else {
    AddToDestination({&unit, 1});
  }
}

void TextDecoder::AddStructure(char16_t character) {
  Flush();
  if (groups_.InBody()) {
    body_.AddStructure(character);
  } else {
    AddToDestination(u" ");
  }
}

void TextDecoder::AddToDestination(TextView text) {
  Flush();
  destinations_.ReadText(text);
}

void TextDecoder::FlushComplete() {
  if (bytes_.IsEmpty()) return;
  for (const char16_t unit : bytes_.TakeComplete()) AddCharacter(unit);
}

void TextDecoder::Flush() {
  if (bytes_.IsEmpty()) return;
  for (const char16_t unit : bytes_.TakeAll()) AddCharacter(unit);
}

}  // namespace quillary::platform::rtf

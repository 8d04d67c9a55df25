// Between the bytes of hosts and the texts of conversions.
#include "quillary/encodings.h"

#include "component/public_errors.h"
#include "page_reader/page_reader.h"
#include "text/ascii.h"
#include "text/encodings.h"

namespace quillary {
namespace {

bool IsHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

// The character at `at`, which then stands after it.
char32_t NextCharacter(TextView text, std::size_t& at) {
  const char16_t unit = text[at++];
  if (!IsHighSurrogate(unit) && !IsLowSurrogate(unit)) return unit;
  if (IsLowSurrogate(unit) || at == text.size() || !IsLowSurrogate(text[at])) return 0xFFFD;
  return 0x10000 + ((char32_t{unit} - 0xD800) << 10) + (char32_t{text[at++]} - 0xDC00);
}

// One byte for a character, or nothing if the encoding lacks it.
std::string InOneByte(char32_t character, Encoding encoding) {
  if (character < 0x80) return {static_cast<char>(character)};
  if (encoding == Encoding::Ascii || character > 0xFFFF) return {};
  const std::string byte = ToWindows1252(Text(1, static_cast<char16_t>(character)), '\0');
  return byte[0] == '\0' ? std::string() : byte;
}

template <class Missing>
std::string EncodeInBytes(TextView text, Encoding encoding, Missing&& missing) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const char32_t character = NextCharacter(text, at);
    const std::string byte = InOneByte(character, encoding);
    bytes += byte.empty() ? missing(character) : byte;
  }
  return bytes;
}

// ASCII stays; `spell` says what stands for each other unit.
template <class Spell>
Text SpellUnits(TextView text, Spell&& spell) {
  Text spelled;
  spelled.reserve(text.size());
  for (const char16_t unit : text) {
    if (unit < 0x80) {
      spelled += unit;
    } else {
      spelled += spell(unit);
    }
  }
  return spelled;
}

}  // namespace

std::string EncodePage(TextView page, Encoding encoding) {
  if (encoding == Encoding::Utf8) return ToUtf8(page);
  return EncodeInBytes(page, encoding, [](char32_t character) {
    return "&#" + std::to_string(static_cast<std::uint32_t>(character)) + ";";
  });
}

std::string EncodeRtf(TextView rtf) {
  std::string bytes;
  bytes.reserve(rtf.size());
  for (const char16_t unit : rtf) {
    if (unit < 0x80) {
      bytes += static_cast<char>(unit);
      continue;
    }
    const auto byte = static_cast<unsigned char>(ToWindows1252(Text(1, unit), '\0')[0]);
    if (byte != 0) {
      bytes += "\\'";
      bytes += static_cast<char>(HexDigit(byte / 16));
      bytes += static_cast<char>(HexDigit(byte % 16));
    } else {
      bytes += "\\u" + std::to_string(static_cast<std::int16_t>(unit)) + "\\'3f";
    }
  }
  return bytes;
}

std::string EncodePlainText(TextView text, Encoding encoding) {
  if (encoding == Encoding::Utf8) return ToUtf8(text);
  return EncodeInBytes(text, encoding, [](char32_t) { return std::string("?"); });
}

Text TextOf(Bytes file) { return FromWindows1252(file.bytes); }

Text TextOf(std::u8string_view text) {
  const std::string_view bytes(reinterpret_cast<const char*>(text.data()), text.size());
  if (!IsUtf8(bytes)) throw PublicError(Failure(Failure::Kind::Argument, 0, "", "The text is no UTF-8."));
  return FromUtf8(bytes);
}

Text RtfOf(std::u8string_view rtf) {
  return SpellUnits(TextOf(rtf), [](char16_t unit) {
    return Joined({u"\\u", Decimal(static_cast<std::int16_t>(unit)), u"\\'3f"});
  });
}

Text HtmlOf(std::u8string_view html) {
  return SpellUnits(TextOf(html), [](char16_t unit) { return Joined({u"&#", Decimal(unit), u";"}); });
}

Text PageOf(Bytes file) {
  try {
    return page_reader::ReadPage(file.bytes);
  } catch (const Failure& failure) {
    throw PublicError(failure);
  }
}

}  // namespace quillary

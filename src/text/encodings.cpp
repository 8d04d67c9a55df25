#include "text/encodings.h"

#include <algorithm>
#include <array>

namespace quillary {
namespace {

// The characters of the bytes 80 to 9F.
constexpr std::array<char16_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char32_t kReplacement = 0xFFFD;

// The byte from 80 to 9F that is this character, or -1.
int UpperControl(char16_t unit) {
  const auto found = std::find(kUpperControls.begin(), kUpperControls.end(), unit);
  return found == kUpperControls.end() ? -1 : static_cast<int>(0x80 + (found - kUpperControls.begin()));
}

void AppendCharacter(Text& text, char32_t character) {
  if (character < 0x10000) {
    text.push_back(static_cast<char16_t>(character));
  } else {
    character -= 0x10000;
    text.push_back(static_cast<char16_t>(0xD800 + (character >> 10)));
    text.push_back(static_cast<char16_t>(0xDC00 + (character & 0x3FF)));
  }
}

/// Reads the character of more than one byte that begins at `at` and moves
/// `at` after it, or after the longest piece that could begin one.
char32_t ReadCharacter(std::string_view bytes, std::size_t& at) {
  const auto lead = static_cast<unsigned char>(bytes[at++]);
  if (lead < 0xC2 || lead > 0xF4) return kReplacement;
  const int trails = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
  char32_t character = lead & (0x3Fu >> trails);
  // The second byte has narrower bounds where the first alone would allow
  // overlong forms, surrogates or numbers beyond the last character.
  unsigned char low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
  unsigned char high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
  for (int i = 0; i < trails; ++i) {
    if (at == bytes.size()) return kReplacement;
    const auto trail = static_cast<unsigned char>(bytes[at]);
    if (trail < low || trail > high) return kReplacement;
    character = (character << 6) | (trail & 0x3F);
    low = 0x80;
    high = 0xBF;
    ++at;
  }
  return character;
}

bool IsHighSurrogate(char16_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool IsLowSurrogate(char16_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

void AppendUtf8(std::string& bytes, char32_t character) {
  const auto byte = [&](char32_t value) { bytes.push_back(static_cast<char>(value)); };
  if (character < 0x80) {
    byte(character);
  } else if (character < 0x800) {
    byte(0xC0 | (character >> 6));
    byte(0x80 | (character & 0x3F));
  } else if (character < 0x10000) {
    byte(0xE0 | (character >> 12));
    byte(0x80 | ((character >> 6) & 0x3F));
    byte(0x80 | (character & 0x3F));
  } else {
    byte(0xF0 | (character >> 18));
    byte(0x80 | ((character >> 12) & 0x3F));
    byte(0x80 | ((character >> 6) & 0x3F));
    byte(0x80 | (character & 0x3F));
  }
}

}  // namespace

Text FromUtf8(std::string_view bytes) {
  Text text;
  text.reserve(bytes.size());
  for (std::size_t at = 0; at < bytes.size();) {
    if (static_cast<unsigned char>(bytes[at]) < 0x80) {
      text.push_back(static_cast<char16_t>(bytes[at++]));
    } else {
      AppendCharacter(text, ReadCharacter(bytes, at));
    }
  }
  return text;
}

bool IsUtf8(std::string_view bytes) {
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t start = at;
    if (static_cast<unsigned char>(bytes[at]) < 0x80) {
      ++at;
    } else if (ReadCharacter(bytes, at) == kReplacement &&
               bytes.substr(start, at - start) != "\xEF\xBF\xBD") {
      return false;
    }
  }
  return true;
}

std::string ToUtf8(TextView text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char16_t unit = text[at];
    if (IsHighSurrogate(unit) && at + 1 < text.size() && IsLowSurrogate(text[at + 1])) {
      AppendUtf8(bytes, 0x10000 + ((char32_t{unit} - 0xD800) << 10) + (char32_t{text[++at]} - 0xDC00));
    } else {
      AppendUtf8(bytes, IsHighSurrogate(unit) || IsLowSurrogate(unit) ? kReplacement : char32_t{unit});
    }
  }
  return bytes;
}

Text FromWindows1252(std::string_view bytes) {
  Text text(bytes.size(), u'\0');
  std::transform(bytes.begin(), bytes.end(), text.begin(), [](char value) {
    const auto byte = static_cast<unsigned char>(value);
    return byte >= 0x80 && byte < 0xA0 ? kUpperControls[byte - 0x80u] : static_cast<char16_t>(byte);
  });
  return text;
}

std::string ToWindows1252(TextView text, char substitute) {
  std::string bytes(text.size(), substitute);
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF)) {
      bytes[i] = static_cast<char>(unit);
    } else if (const int byte = UpperControl(unit); byte >= 0) {
      bytes[i] = static_cast<char>(byte);
    }
  }
  return bytes;
}

int RawByte(char16_t unit) { return unit <= 0xFF ? unit : UpperControl(unit); }

}  // namespace quillary

// Texts and lines of JSON. The JSON library knows no lone surrogates, so on the
// way in each is replaced by a character of the last private plane, whose
// upper 2,048 characters stand for the 2,048 surrogates, and put back on the
// way out.
#include "registry.h"

namespace quillary::routine {
namespace {

constexpr std::uint32_t kSurrogateStandIn = 0x10F800;

void AppendUtf8(std::string& bytes, std::uint32_t character) {
  if (character < 0x80) {
    bytes += static_cast<char>(character);
  } else if (character < 0x800) {
    bytes += static_cast<char>(0xC0 | (character >> 6));
    bytes += static_cast<char>(0x80 | (character & 0x3F));
  } else if (character < 0x10000) {
    bytes += static_cast<char>(0xE0 | (character >> 12));
    bytes += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
    bytes += static_cast<char>(0x80 | (character & 0x3F));
  } else {
    bytes += static_cast<char>(0xF0 | (character >> 18));
    bytes += static_cast<char>(0x80 | ((character >> 12) & 0x3F));
    bytes += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
    bytes += static_cast<char>(0x80 | (character & 0x3F));
  }
}

bool IsHigh(std::uint32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsLow(std::uint32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

// The value of the escape \uXXXX at this place, or -1.
std::int32_t EscapeAt(const std::string& line, std::size_t at) {
  if (at + 6 > line.size() || line[at] != '\\' || line[at + 1] != 'u') return -1;
  std::int32_t value = 0;
  for (std::size_t i = at + 2; i < at + 6; ++i) {
    const char digit = line[i];
    if (digit >= '0' && digit <= '9') {
      value = value * 16 + (digit - '0');
    } else if ((digit | 0x20) >= 'a' && (digit | 0x20) <= 'f') {
      value = value * 16 + ((digit | 0x20) - 'a' + 10);
    } else {
      return -1;
    }
  }
  return value;
}

void AppendEscape(std::string& line, std::uint32_t unit) {
  constexpr char kDigits[] = "0123456789abcdef";
  line += "\\u";
  for (int shift = 12; shift >= 0; shift -= 4) line += kDigits[(unit >> shift) & 0xF];
}

}  // namespace

Json ToJson(TextView text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const std::uint32_t unit = text[i];
    if (IsHigh(unit) && i + 1 < text.size() && IsLow(text[i + 1])) {
      AppendUtf8(bytes, 0x10000 + ((unit - 0xD800) << 10) + (text[++i] - 0xDC00U));
    } else if (IsHigh(unit) || IsLow(unit)) {
      AppendUtf8(bytes, kSurrogateStandIn + (unit - 0xD800));
    } else {
      AppendUtf8(bytes, unit);
    }
  }
  return bytes;
}

Text ToText(const Json& value) {
  const auto& bytes = value.get_ref<const std::string&>();
  Text text;
  text.reserve(bytes.size());
  for (std::size_t i = 0; i < bytes.size();) {
    const auto lead = static_cast<unsigned char>(bytes[i]);
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    std::uint32_t character = length == 1 ? lead : lead & (0xFFU >> (length + 1));
    for (std::size_t k = 1; k < length; ++k) {
      character = (character << 6) | (static_cast<unsigned char>(bytes[i + k]) & 0x3FU);
    }
    i += length;
    if (character >= kSurrogateStandIn) {
      text += static_cast<char16_t>(character - kSurrogateStandIn + 0xD800);
    } else if (character >= 0x10000) {
      text += static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10));
      text += static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FF));
    } else {
      text += static_cast<char16_t>(character);
    }
  }
  return text;
}

Json ParseLine(const std::string& line) {
  std::string safe;
  safe.reserve(line.size());
  for (std::size_t i = 0; i < line.size();) {
    if (line[i] != '\\') {
      safe += line[i++];
      continue;
    }
    const std::int32_t unit = EscapeAt(line, i);
    if (unit < 0 || !(IsHigh(static_cast<std::uint32_t>(unit)) || IsLow(static_cast<std::uint32_t>(unit)))) {
      safe.append(line, i, 2);
      i += 2;
      continue;
    }
    const std::int32_t next = EscapeAt(line, i + 6);
    if (IsHigh(static_cast<std::uint32_t>(unit)) && next >= 0 && IsLow(static_cast<std::uint32_t>(next))) {
      safe.append(line, i, 12);
      i += 12;
    } else {
      AppendUtf8(safe, kSurrogateStandIn + static_cast<std::uint32_t>(unit - 0xD800));
      i += 6;
    }
  }
  return Json::parse(safe);
}

std::string WriteLine(const Json& value) {
  const std::string ascii = value.dump(-1, ' ', true);
  std::string line;
  line.reserve(ascii.size());
  for (std::size_t i = 0; i < ascii.size();) {
    if (ascii[i] != '\\') {
      line += ascii[i++];
      continue;
    }
    const std::int32_t high = EscapeAt(ascii, i);
    const std::int32_t low = EscapeAt(ascii, i + 6);
    if (high >= 0xDBFE && high <= 0xDBFF && low >= 0) {
      AppendEscape(line, 0xD800U + (static_cast<std::uint32_t>(high - 0xDBFE) << 10) +
                             static_cast<std::uint32_t>(low - 0xDC00));
      i += 12;
    } else {
      line.append(ascii, i, 2);
      i += 2;
    }
  }
  return line;
}

}  // namespace quillary::routine

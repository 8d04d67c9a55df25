// What a character of ASCII is. Every function takes a byte or a unit; one that
// is not ASCII is none of these.
#pragma once

namespace quillary {

constexpr bool IsAsciiDigit(int unit) { return unit >= '0' && unit <= '9'; }
constexpr bool IsAsciiUpper(int unit) { return unit >= 'A' && unit <= 'Z'; }
constexpr bool IsAsciiLower(int unit) { return unit >= 'a' && unit <= 'z'; }
constexpr bool IsAsciiLetter(int unit) { return IsAsciiUpper(unit) || IsAsciiLower(unit); }
constexpr bool IsAsciiAlphanumeric(int unit) { return IsAsciiLetter(unit) || IsAsciiDigit(unit); }

/// A space or a control character, so nothing that can be seen.
constexpr bool IsAsciiSpaceOrControl(int unit) { return unit >= 0 && unit <= ' '; }

/// The letter in the other case; any other unit stays as it is.
template <class Unit>
constexpr Unit AsciiLower(Unit unit) {
  return IsAsciiUpper(unit) ? static_cast<Unit>(unit | 0x20) : unit;
}
template <class Unit>
constexpr Unit AsciiUpper(Unit unit) {
  return IsAsciiLower(unit) ? static_cast<Unit>(unit & ~0x20) : unit;
}

/// The value of a hexadecimal digit in either case, or -1.
constexpr int HexDigitValue(int unit) {
  if (IsAsciiDigit(unit)) return unit - '0';
  const int lower = AsciiLower(unit);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// The lower-case hexadecimal digit of a value from 0 to 15.
constexpr char16_t HexDigit(int value) {
  return static_cast<char16_t>(value < 10 ? u'0' + value : u'a' + value - 10);
}

}  // namespace quillary

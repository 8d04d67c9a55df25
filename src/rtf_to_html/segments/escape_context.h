// What decides how an escape is read: the language, the font that a head sets,
// and the charset of a font.
#pragma once

#include <memory>
#include <optional>

#include "apartment/apartment.h"
#include "text/text.h"

namespace quillary::modQuillary {

/// What the head of a segment says to the escapes of its body.
struct EscapeHead {
  bool turkish = false;     // it holds lang1055
  bool greek = false;       // it holds lang1032
  bool sets_font = false;   // it holds \f
  std::optional<int> font;  // the font word that counts, if its number is in the font table
};

EscapeHead ReadEscapeHead(const RtfToHtmlState& state, TextView head);

/// A font number written after the word \f, and the offset after its digits.
struct FontNumber {
  int number = 0;
  std::size_t end = 0;
};

/// The number of the word \f at the 0-based offset `at`, if it is written
/// without leading zeros and no more than `font_count`.
std::optional<FontNumber> ReadFontNumber(TextView text, std::size_t at, int font_count);

/// The charset of a font; 0 for a number outside the table.
int CharsetOfFont(const RtfToHtmlState& state, int font);

/// The code page that escapes in a font of this charset are decoded by, 0 if
/// they are Western bytes.
int EscapeCodePageOfCharset(int charset);

/// Throws Failure (raised) if there is no decoder to be had.
std::unique_ptr<platform::CodePageDecoder> NewDecoder(const Apartment& apartment);

/// DecodeHexEscapes with a head that is already read.
Text DecodeHexEscapes(Apartment& apartment, TextView text, const EscapeHead& head);

}  // namespace quillary::modQuillary

// Module HTMLRTFConverter: the text between two tags on its way into RTF. A unit
// of the page often stands for one byte of the page's code page; these functions
// work on such units as well as on characters.
#pragma once

#include <cstdint>

#include "apartment/apartment.h"
#include "text/text.h"

namespace quillary::HTMLRTFConverter {

/// Leaves one space of each run of spaces.
void CollapseSpaces(Text& text);

/// The tag without the backslashes in front of its quotation marks.
Text UnescapeQuotes(TextView tag);

/// A page in windows-1251 whose bytes were read as Windows-1252: every character
/// beyond ASCII becomes a decimal entity. Throws Failure (raised) if this machine
/// has no table of that code page.
Text CyrillicToEntities(TextView text);

/// "&#...;" forms to words of RTF, the hexadecimal ones first. Throws Failure
/// (type, overflow) at a decimal reference that is no number; what stands in front
/// of it is decoded by then.
void DecodeNumericEntities(Text& text);

/// "&name;" forms to characters or words of RTF.
void DecodeNamedEntities(const Apartment& apartment, Text& text);

/// Units beyond ASCII to words of RTF: UTF-8, whose bytes are the units, or
/// Windows-1252. The last unit is never looked at.
void EncodeHighChars(const Apartment& apartment, Text& text);

/// The two or three bytes of UTF-8 from `position` on become one word of RTF; where
/// so many units are not left, nothing happens. Gives the position of the word's
/// last unit. Throws Failure (argument) for a position below 1.
std::int32_t EncodeUtf8Pair(Text& text, std::int32_t position);
std::int32_t EncodeUtf8Triple(Text& text, std::int32_t position);

/// The byte of a unit in Windows-1252: 63, a question mark, for one that it lacks.
int AnsiValue(char16_t unit);

/// The language number of an entry of LanguageStack. Throws Failure (subscript) for
/// an index outside of it.
std::int16_t LanguageCode(const HtmlToRtfState& state, std::int32_t index);

}  // namespace quillary::HTMLRTFConverter

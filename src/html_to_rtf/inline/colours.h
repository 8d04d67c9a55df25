// The colour and font lists of the RTF, and colours as tags spell them.
#pragma once

#include <cstdint>

#include "apartment/apartment.h"
#include "text/text.h"

namespace quillary::HTMLRTFConverter {

/// Adds the name to the list if it is not in it. Throws Failure (overflow) for more
/// entries than the count can hold.
void AddColour(HtmlToRtfState& state, TextView colour);
void AddFont(HtmlToRtfState& state, TextView face);

/// The same whether it is in the list or not.
void AppendColour(HtmlToRtfState& state, TextView colour);

/// The number of a colour in the colour table of the RTF; that of the first one if
/// the list does not hold it.
std::int32_t ColourNumber(const HtmlToRtfState& state, TextView colour);

/// A colour as a tag spells it to six hexadecimal digits, in place: without quotation
/// marks and the like, in upper case, the names that are known as digits. Other names stay.
void NormaliseCssColour(const Apartment& apartment, Text& text);

/// "RGB(1,2,3)" to six digits, empty if a comma is missing; any other text stays as
/// it is. Throws as RoundNumberText.
Text ReadRgb(TextView text);

/// The parts of six digits; what is unreadable is 0.
std::int16_t ColourRed(TextView colour);
std::int16_t ColourGreen(TextView colour);
std::int16_t ColourBlue(TextView colour);

}  // namespace quillary::HTMLRTFConverter

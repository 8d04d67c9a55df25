// Sizes as tags spell them, in half points.
#pragma once

#include "apartment/apartment.h"
#include "text/text.h"

namespace quillary::HTMLRTFConverter {

/// The size of a step of HTML ("1" to "12" are steps); any other number is one of
/// points. Where `rounded` is false the text is brought to one decimal first, and asked
/// for again. Throws Failure (type) for a text that is no number.
Text HtmlFontSize(TextView text, bool rounded);

/// The number that "FONT-SIZE:" names, in the words of the tag; empty if it has none.
Text ReadCssFontSize(const Apartment& apartment, TextView tag);

}  // namespace quillary::HTMLRTFConverter

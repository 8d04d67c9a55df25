// Values in a tag. The tag is in upper case; where a value begins and what ends it
// differs from attribute to attribute.
#pragma once

#include <cstdint>
#include <initializer_list>

#include "text/text.h"

namespace quillary::HTMLRTFConverter {

/// The first occurrence at or after `from` of the first of `ends` that has one, or 0.
std::int32_t FirstEnd(TextView tag, std::int32_t from, std::initializer_list<TextView> ends);

/// What stands from `start` to before `end`; empty for an end of 0 or one that is not
/// after the start.
TextView ValueBetween(TextView tag, std::int32_t start, std::int32_t end);

/// The value of FACE, SIZE or COLOR, named "NAME=" or "NAME =", which may stand in
/// quotation marks; empty if the tag has none.
Text ReadQuotedValue(TextView tag, TextView name);

/// The value of a style property, named "NAME:", which ends at the first space after
/// its first unit or with the tag; empty if the tag has none.
Text ReadSpacedValue(TextView tag, TextView name);

/// The text without any of these characters.
Text Without(TextView text, TextView characters);

/// The number that a text spells. Throws Failure (type) if it spells none.
double ToNumber(TextView text);
/// The shortest decimal text of a number, without an exponent.
Text NumberText(double number);

}  // namespace quillary::HTMLRTFConverter

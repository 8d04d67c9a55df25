// The ground floor: texts of 16-bit units, and the vocabulary in which every
// stage of a conversion is written. Positions are 1-based; 0 is "not found".
// All of this is reentrant and holds no state.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "text/list.h"

namespace quillary {

using Text = std::u16string;
using TextView = std::u16string_view;

/// How two texts are compared. IgnoreCase compares unit by unit under simple
/// case folding, so that lengths and positions never change.
enum class Compare : std::uint8_t { Binary = 0, IgnoreCase = 1 };

/// A list of texts, indexed from 0, that may never have been sized.
using TextList = List<Text>;

/// Replaces the non-overlapping occurrences of `find` from left to right, at
/// most `limit` of them when `limit` is 0 or more. What was inserted is not
/// scanned again. An empty `find` gives the text unchanged.
Text ReplaceAll(TextView text, TextView find, TextView with, Compare mode = Compare::Binary,
                std::int32_t limit = -1);

/// The same in place; the text is not touched where nothing matches.
/// Returns whether anything was replaced.
bool ReplaceIn(Text& text, TextView find, TextView with, Compare mode = Compare::Binary,
               std::int32_t limit = -1);

/// Position of the first occurrence at or after `start`, or 0. An empty text
/// gives 0, an empty `find` gives `start`, a start beyond the end gives 0.
/// Throws Failure (argument) for a start below 1.
std::int32_t FindText(std::int32_t start, TextView text, TextView find, Compare mode = Compare::Binary);

/// Whether `find` occurs in `text` at all.
bool Holds(TextView text, TextView find, Compare mode = Compare::Binary);

/// Number of (possibly overlapping) occurrences; stops at 181, which
/// therefore means "181 or more".
std::int32_t CountOccurrences(TextView text, TextView find, Compare mode = Compare::Binary);

/// Position of the last (possibly overlapping) occurrence, or 0. Yields to
/// the host at every hit.
std::int32_t LastPosition(TextView text, TextView find, Compare mode = Compare::Binary);

/// Reads a decimal number and rounds it by its first decimal digit. Minus
/// signs, spaces and backslashes are thrown away, a comma counts as a point.
/// Throws Failure: overflow above 32,767; type for a whole part without digits.
std::int16_t RoundNumberText(TextView text);

/// Turns a percentage or a number into two or more hexadecimal digits; the
/// argument is overwritten with the same digits. Throws as RoundNumberText.
Text PercentToByte(Text& text);

/// Index of the first element equal to `name` (binary), 0 if there is none:
/// a hit at index 0 cannot be told from no hit. Never fails.
std::int16_t FindInList(const TextList& list, TextView name);

/// True exactly when the list was never sized.
bool IsListEmpty(const TextList& list);

/// Everything from the beginning of the text through the end of the closing
/// tag that balances the first opening tag `tag` (matched as a prefix).
/// Throws Failure (argument) for a text without the tag or its closing tag.
Text ExtractElement(TextView text, TextView tag);

/// A turn for the host's message queue. There is none here, so it does nothing.
void YieldToHost();

/// Left, Mid and Right throw Failure (argument) for a negative count, Mid
/// also for a start below 1.
Text Left(TextView text, std::int32_t count);
Text Right(TextView text, std::int32_t count);
Text Mid(TextView text, std::int32_t start);
Text Mid(TextView text, std::int32_t start, std::int32_t count);

/// The same stretch without a copy, for scans that only look.
TextView MidView(TextView text, std::int32_t start);
TextView MidView(TextView text, std::int32_t start, std::int32_t count);

/// The parts one after another.
Text Joined(std::initializer_list<TextView> parts);

/// Removes the space character U+0020 at both ends and nothing else.
Text Trim(TextView text);
TextView TrimView(TextView text);

Text ToUpper(TextView text);
Text ToLower(TextView text);

/// Equality of whole texts; two texts of different length are never equal.
bool Equal(TextView left, TextView right, Compare mode);

/// Optional spaces around, an optional sign, digits with at most one point.
bool IsNumeric(TextView text);

/// Decimal value of a numeric text, rounded half to even, as the assignment
/// of a text to a whole number does. Throws Failure: type if the text is not
/// numeric, overflow beyond the width.
std::int32_t ToInteger32(TextView text);
std::int16_t ToInteger16(TextView text);

/// Half of `value`, rounded to the nearest even number on a tie.
std::int32_t HalfToEven(std::int32_t value);

/// Upper-case hexadecimal digits without leading zeros; a negative 16-bit
/// value has four digits, a negative 32-bit value eight.
Text Hex(std::int32_t value);
Text Hex16(std::int16_t value);

/// Plain decimal digits.
Text Decimal(std::int64_t value);

/// The length as the signed 32-bit number in which positions are counted.
/// Throws LimitReached for a text that is too long to be addressed so.
std::int32_t Length(TextView text);

}  // namespace quillary

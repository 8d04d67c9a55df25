// Tables, rows and cells. The rules of an outermost row stand in front of its cells, those of
// a nested one after them, and both read the row ahead in HtmlWork. Tags are in upper case;
// a position is that of the tag's "<" in HtmlWork.
#pragma once

#include <cstdint>

#include "apartment/apartment.h"
#include "text/text.h"

namespace quillary::HTMLRTFConverter {

/// What a further column of a COLSPAN adds to the count of columns while its cell is open.
inline constexpr std::int16_t kColumnOfSpan = 1000;

/// Every statement of it that fails is skipped.
void OpenTable(Apartment& apartment, TextView tag, std::int32_t position);
/// Throws Failure (subscript) for an end without a table; the depth is negative then.
void CloseTable(Apartment& apartment);

/// Throw Failure as the scans of the row do, and (type, overflow) for values that are no
/// numbers; what was done by then stays.
void OpenRow(Apartment& apartment, TextView tag, std::int32_t position);
void CloseRow(Apartment& apartment, TextView tag);

/// Where the row tag was left out, writes "</TR>" into HtmlWork where the row ends. Throws as
/// OpenRow, and Failure (overflow) for a COLSPAN above 33.
void OpenCell(Apartment& apartment, TextView tag, std::int32_t position);
void CloseCell(HtmlToRtfState& state);

/// A number of a tag, named without its "="; `otherwise` if it has none. Throws Failure (type)
/// for a value that is no number.
std::int16_t ReadNumber(TextView tag, TextView name, std::int32_t from, std::int16_t otherwise);

}  // namespace quillary::HTMLRTFConverter

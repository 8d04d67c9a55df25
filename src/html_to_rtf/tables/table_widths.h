// What a browser does for a table: a width for each of its columns, from the widths that the
// table, its cells and the tables in them ask for. RTF needs them before the first cell.
#pragma once

#include <cstdint>

#include "text/integer16.h"
#include "text/text.h"

namespace quillary::HTMLRTFConverter {

/// The width of the page at the outermost level, in pixels.
inline constexpr std::int16_t kPagePixels = 600;

/// Computes the table at that position. `room` holds the pixels that there are, and afterwards
/// those that the table needs; `widths` the columns, separated by single spaces, "-1" for one of
/// unknown width. Gives the width of the table, 0 if one of its columns is unknown. Throws
/// Failure for values that are no numbers and for a table that has no columns or that nothing
/// ends; `widths` stays then. Throws LimitReached for tables nested too deep.
std::int16_t ComputeTableWidths(TextView text, std::int32_t position, Integer16& room, Text& widths);

/// The sum of the columns after the first `skipped` up to the one with number `last`.
std::int16_t SumOfColumns(TextView widths, int skipped, int last);

}  // namespace quillary::HTMLRTFConverter

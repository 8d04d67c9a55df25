// The definition of a row: what stands in front of its cells, or after those of a nested row.
#pragma once

#include <cstdint>

#include "apartment/apartment.h"
#include "html_to_rtf/tables/table_borders.h"
#include "text/text.h"

namespace quillary::HTMLRTFConverter {

/// Border and padding words of a row of the open table.
Text RowWords(const TableLevel& level);

/// The row at that position of HtmlWork in upper case, without the tables in it. Throws as
/// ExtractRow.
Text RowAt(const HtmlToRtfState& state, std::int32_t position);

/// What the tag of a row says of its place: the repair of rows has marked it.
CellPlace RowPlace(TextView tag);

/// Border, shading and position words of the cells of a row, which is as of RowAt. An outermost
/// row has one shading for all its cells, a nested one the words of vertically merged cells.
/// Throws Failure (type) for a COLSPAN that is no number, and as CellBorders.
Text OuterCells(Apartment& apartment, TextView row, CellPlace place, TextView shading);
Text NestedCells(Apartment& apartment, TextView row, CellPlace place);

}  // namespace quillary::HTMLRTFConverter

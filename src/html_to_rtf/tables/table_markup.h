// Rows, cells and nested tables in a piece of a page, found by their tags. Tags are told by
// their beginnings in any case: "<TRACK" is a row. Nested tables are passed over by their
// own end tags, as ExtractElement finds them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "text/text.h"

namespace quillary::HTMLRTFConverter {

enum class TableMarkup : std::uint8_t { None, Table, TableEnd, Row, RowEnd, Cell, CellEnd };

struct MarkupPlace {
  TableMarkup kind = TableMarkup::None;
  std::size_t at = 0;  // offset of its "<"
};

/// The first of these tags at or after the offset; kind None if there is none.
MarkupPlace NextMarkup(TextView text, std::size_t from);

/// All of them, in order.
std::vector<MarkupPlace> AllMarkup(TextView text);

/// Length of the TABLE element that the text begins with, as that of ExtractElement. Throws
/// Failure (argument) for a table without any end tag after it, or one that is cut off.
std::size_t TableLength(TextView text);

/// The row or cell that the text begins with: up to its end tag, or up to the tag that ends it
/// without one. Throws as TableLength for a nested table.
TextView ExtractRow(TextView text);
TextView ExtractCell(TextView text);

/// The last start tag of that name ("<TR", "<TABLE") that is not part of a table that has ended by the end of
/// the text: its position, 0 if there is none.
std::int32_t FindLevelStart(TextView text, TextView name);

/// A table without the tables in it.
Text StripNestedTables(TextView text);

/// Columns of the first row. Throws Failure (type) for a COLSPAN that is no number.
std::int16_t CountColumns(TextView text);

/// Whether the text has a table tag at that offset, and which.
TableMarkup MarkupAt(TextView text, std::size_t at);

}  // namespace quillary::HTMLRTFConverter

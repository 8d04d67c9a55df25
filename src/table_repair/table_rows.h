// The walk over the closed rows of a balanced table.
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "table_repair/table_tags.h"
#include "text/limits.h"

namespace quillary::RepairHTMLTable {

struct TableRow {
  TextView text;                       // from the open row's tag through the closing one
  std::int32_t start = 0;              // its place in the table
  const std::vector<TableTag>& cells;  // the cell tags since the last row end, in order
  TableTag end;

  /// What stands between two tags of the row. Throws Failure (argument) if
  /// that lies in front of the row.
  TextView Between(const TableTag& open, const TableTag& close) const;
};

/// Writes one row of the table onto the text.
using RowWriter = std::function<void(const TableRow& row, Text& output)>;

/// Copies a table row by row. A row that is closed twice is written twice.
/// Throws Failure: argument for a closing tag without a row, overflow for more
/// than 32,767 cell tags in a row; LimitReached for a result above `limit`.
Text RewriteRows(TextView table, std::size_t limit, const RowWriter& write);

}  // namespace quillary::RepairHTMLTable

// The walk over the closed rows of a balanced table.
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "table_repair/table_tags.h"
#include "text/limits.h"

namespace quillary::RepairHTMLTable {

struct TableRow {
  TextView text;                  // from the open row's tag through the closing one
  std::size_t begin = 0;          // its offset in the table, from which its tags are counted too
  const std::vector<Tag>& cells;  // the cell tags since the last row end, in order

  /// The offset in the row after this tag. Throws Failure (argument) if that
  /// lies before the row.
  std::size_t OffsetAfter(const Tag& tag) const;
  /// What stands between two tags of the row. Fails as OffsetAfter does.
  TextView Between(const Tag& open, const Tag& close) const;
};

/// Writes one row of the table onto the text.
using RowWriter = std::function<void(const TableRow& row, Text& output)>;

/// Copies a table row by row. A row that is closed twice is written twice.
/// Throws Failure: argument for a closing tag without a row, overflow for more
/// than 32,767 cell tags in a row; LimitReached for a result above `limit`.
Text RewriteRows(TextView table, std::size_t limit, const RowWriter& write);

}  // namespace quillary::RepairHTMLTable

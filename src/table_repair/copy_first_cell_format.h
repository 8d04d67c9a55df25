// The tags that open the first cell's text, given to every cell.
#pragma once

#include <cstddef>

#include "text/limits.h"
#include "text/text.h"

namespace quillary::RepairHTMLTable {

/// Strips the tags from every cell and puts those that open the table's first
/// cell in front of its text. A table whose first cell opens with text, or a
/// failure on the way, gives the table unchanged. Throws LimitReached for a
/// result above `limit`.
Text CopyFirstCellFormat(TextView table, std::size_t limit = limits::kWorkingUnits);

}  // namespace quillary::RepairHTMLTable

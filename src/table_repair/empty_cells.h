// Cells without text: given a no-break space, or dropped from the end of their row.
#pragma once

#include <cstddef>

#include "text/limits.h"
#include "text/text.h"

namespace quillary::RepairHTMLTable {

/// Puts "&nbsp;" into every cell without text. A failure on the way gives the
/// table unchanged; so does a cell in which no text shows up before its
/// character 32,768. Throws LimitReached for a result above `limit`.
Text FillEmptyCells(TextView table, std::size_t limit = limits::kWorkingUnits);

/// Drops the empty cells after the last one with text, and rows of empty
/// cells only. Fails as FillEmptyCells does.
Text DropEmptyCells(TextView table, std::size_t limit = limits::kWorkingUnits);

}  // namespace quillary::RepairHTMLTable

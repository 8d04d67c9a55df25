// The repair of all tables of a page.
#pragma once

#include <cstddef>

#include "text/integer16.h"
#include "text/limits.h"
#include "text/text.h"

namespace quillary::RepairHTMLTable {

/// The bits of the option word.
inline constexpr std::int16_t kFillEmptyCells = 2;
inline constexpr std::int16_t kDropEmptyCells = 4;
inline constexpr std::int16_t kCopyFirstCellFormat = 8;

/// The page with every table repaired; nested tables come out one behind the
/// other. A Failure in one table leaves this function, so that the caller keeps
/// the page as it was. Throws LimitReached for a table above `limit`.
Text RepairTables(TextView html, Integer16 options, std::size_t limit = limits::kWorkingUnits);

/// One table, from its opening tag through its closing one.
Text RepairOneTable(TextView table, Integer16 options, std::size_t limit = limits::kWorkingUnits);

}  // namespace quillary::RepairHTMLTable

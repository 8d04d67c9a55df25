// The module RepairHTMLTable: makes the tables of any page regular. It balances
// the tags of rows and cells, fills or drops empty cells, spans short rows and
// knows nothing of who wrote the page. Forms that only this program's pages have
// are repaired in rtf_to_html/page_repairs, formats that run on from cell to
// cell in html_finishing/cell_formats.
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

/// The page with every table repaired; nested tables come out one after the
/// other. A Failure in one table leaves this function, so that the caller keeps
/// the page as it was. Throws LimitReached for a table above `limit`.
Text RepairTables(TextView html, Integer16 options, std::size_t limit = limits::kWorkingUnits);

/// One table, from its opening tag through its closing one.
Text RepairOneTable(TextView table, Integer16 options, std::size_t limit = limits::kWorkingUnits);

}  // namespace quillary::RepairHTMLTable

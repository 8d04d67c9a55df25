// Part of the module modQuillary: repairs of the tables of an assembled page that
// are more than a chain of rules, in running order. None of them parses: each knows the exact shapes that
// this program's assembly is known to leave. What is wrong with tables of any page is for table_repair
// (RepairHTMLTable); formats that run on from cell to cell are for html_finishing/cell_formats (modTable).
#pragma once

#include "rules/rewriting.h"
#include "text/text.h"

namespace quillary::modQuillary {

/// A cell width word that stands directly before a font element opens a table;
/// one before a font end goes.
void OpenFirstCellWidth(rules::Rewriting& page);

/// A page that closes a table which it never opened gets a table head after
/// its body tag. `colour` is the one that the body tag was written with.
void SupplyTableHead(rules::Rewriting& page, TextView colour);

void DropEmptyLastCells(rules::Rewriting& page);

/// Looks at the first row only that begins with a cell width of four digits,
/// and not at one at the very beginning of the page.
void DropFirstCellWidth(rules::Rewriting& page);

}  // namespace quillary::modQuillary

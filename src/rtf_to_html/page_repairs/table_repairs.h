// Part of the module modQuillary: repairs of the tables of an assembled page, in
// running order. None of them parses: each knows the exact shapes that this
// program's assembly is known to leave. What is wrong with tables of any page is
// for table_repair (RepairHTMLTable); formats that run on from cell to cell are
// for html_finishing/cell_formats (modTable).
#pragma once

#include <functional>

#include "apartment/apartment.h"
#include "rules/rewriting.h"
#include "text/text.h"

namespace quillary::modQuillary {

/// A cell width word that stands directly before a font element opens a table;
/// one before a font end goes.
void OpenFirstCellWidth(rules::Rewriting& page);

/// Fonts move in front of a table head; rows that lost their start get it back.
void RepairTableHeads(rules::Rewriting& page);

/// A page that closes a table which it never opened gets a table head behind
/// its body tag. `colour` is the one that the body tag was written with.
void SupplyTableHead(rules::Rewriting& page, TextView colour);

void RepairRowShapes(rules::Rewriting& page);

/// Removes what is left of border spacing words, and mends the joints of rows.
void DropBorderSpacing(rules::Rewriting& page);

/// Moves row starts in front of the formats before them, and runs the table
/// repair; a failure of that repair leaves the page as it was before it.
void RepairRowStarts(rules::Rewriting& page);

void DropCellMarks(rules::Rewriting& page);

void DropEmptyLastCells(rules::Rewriting& page);
void MendLowQuotes(rules::Rewriting& page);
void DropCellWidths(rules::Rewriting& page);

/// Looks at the first row only that begins with a cell width of four digits,
/// and not at one at the very beginning of the page.
void DropFirstCellWidth(rules::Rewriting& page);

/// How the walk over the table blocks ended. GoBack: a block failed, and the
/// whole remainder of the sequence from DropCellMarks on is to run again.
enum class BlockWalk { Done, GoBack };

/// Gives the new text of one block; throws Failure if it cannot.
using BlockRoutine = std::function<Text(TextView block)>;

/// Rewrites the tables block by block, a block being the text from a "<table"
/// to the nearest "</table>". What came before the block that failed stays
/// rewritten.
BlockWalk BalanceTableBlocks(rules::Rewriting& page, const BlockRoutine& balance);

/// The same with the balance of cell formats.
BlockWalk BalanceTableBlocks(rules::Rewriting& page);

}  // namespace quillary::modQuillary

// The module modTable: formats that run on across the cells of a table. A cell
// of a page opens and closes its own tags; in the source a bold run or a font
// goes on until something ends it. The rows and cells themselves stay as they
// are: table_repair makes them regular, and rtf_to_html/page_repairs mends the
// forms that only this program's pages have.
#pragma once

#include <cstdint>

#include "apartment/apartment.h"
#include "text/text.h"

namespace quillary::modTable {

/// Closes in each cell of a table what it opened, and opens in each cell what
/// runs on from the cells in front of it. Works in the fragment list of the
/// apartment. Throws LimitReached for a result above the working limit.
Text BalanceCellFormatting(Apartment& apartment, TextView table);

/// Empties the fragment list and ends all that runs on.
void ResetCellFragments(RtfToHtmlState& state);

void AddCellFragment(RtfToHtmlState& state, TextView text, bool is_cell);

/// Rewrites the fragment of that number, counted from 1; a number after the
/// last one does nothing.
void BalanceFragment(RtfToHtmlState& state, std::int32_t index);

}  // namespace quillary::modTable

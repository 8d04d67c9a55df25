// Whole-page stages that make tables regular before the tags are walked.
#pragma once

#include "text/text.h"

namespace quillary::HTMLRTFConverter {

/// Supplies the end tags of rows and cells that were left out, and marks the first and the
/// last row of each table. Throws Failure (argument) at a table in such a row that nothing ends;
/// what was changed by then stays.
void RepairRowsAndCells(Text& page);

/// Gives every row below a ROWSPAN an empty cell for it. Throws Failure (argument) for a table
/// that nothing ends, (overflow) for a span beyond 16 bits; what was changed by then stays.
void ExpandRowspans(Text& page);

/// The same step by step, at the cost of some passes over the page for each ROWSPAN: the way of
/// the few pages where a cell counts for two rows. Throws LimitReached for one that has no end.
void ExpandRowspansOneByOne(Text& page);

}  // namespace quillary::HTMLRTFConverter

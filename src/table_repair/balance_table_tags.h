// The first repair of a table (RepairHTMLTable): every row and every cell gets its closing tag.
#pragma once

#include "text/text.h"

namespace quillary::RepairHTMLTable {

/// Closes all rows and cells of a table; text that stands outside any cell
/// moves into one. What stands after the table's closing tag is dropped; a
/// text without a closing tag is left open.
Text BalanceTableTags(TextView table);

}  // namespace quillary::RepairHTMLTable

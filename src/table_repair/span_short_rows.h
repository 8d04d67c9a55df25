// Rows of different width: the last cell of a short row is widened.
#pragma once

#include "text/text.h"

namespace quillary::RepairHTMLTable {

/// Makes every row span the widest one. Throws Failure with the source
/// "HTMLParser::repairTable" and the place in its description; a row without
/// an end is raised with the code 0x800400C9.
Text SpanShortRows(TextView table);

}  // namespace quillary::RepairHTMLTable

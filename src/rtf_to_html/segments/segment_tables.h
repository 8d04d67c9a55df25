// Rows and cells out of the words that are left in the body.
#pragma once

#include "rules/rewriting.h"
#include "text/text.h"

namespace quillary::modQuillary {

/// The text with the width words of its cells replaced by sentinels. Stops at the
/// first width that is no number.
Text MarkCellWidths(TextView text);

/// Rows and cells in the body.
void ReplaceTableWords(rules::Rewriting& body);

}  // namespace quillary::modQuillary

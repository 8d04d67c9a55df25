// The first clean-up of the assembled page.
#pragma once

#include "rules/rewriting.h"

namespace quillary::html_finishing {

/// Turns indents into list nesting, removes empty font tags, joins rows and
/// opens the tables that stray cell widths stand for.
void TidyLayout(rules::Rewriting& page);

}  // namespace quillary::html_finishing

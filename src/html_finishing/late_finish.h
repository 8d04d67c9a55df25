// The last pass over a page that went through the HTML cleaner.
#pragma once

#include "text/text.h"

namespace quillary::html_finishing {

/// Brings wrapped attributes back to their tags and removes the empty shells
/// that the cleaner leaves.
void LateFinish(Text& html);

}  // namespace quillary::html_finishing

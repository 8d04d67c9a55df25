// The breaks in the first list of a page.
#pragma once

#include "rules/rewriting.h"
#include "text/text.h"

namespace quillary::html_finishing {

/// Takes out of the first list as many breaks as it has items but one.
Text CollapseFirstList(Text html);
void CollapseFirstList(rules::Rewriting& page);

}  // namespace quillary::html_finishing

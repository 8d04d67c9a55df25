// The last long run over the page: entities, list markup, nesting of tags, and
// the breaks in front of the end of the body.
#pragma once

#include "rules/rewriting.h"
#include "text/text.h"

namespace quillary::html_finishing {

/// Reads the fonts, the colours and the found links of the apartment.
void FinishEntitiesAndLists(rules::Rewriting& page);

/// Takes out of the first list as many breaks as it has items but one.
Text CollapseFirstList(Text html);
void CollapseFirstList(rules::Rewriting& page);

}  // namespace quillary::html_finishing

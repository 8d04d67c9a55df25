// The last repairs of an assembled page, in running order.
#pragma once

#include "rules/rewriting.h"

namespace quillary::modQuillary {

/// Ends of lists and centred blocks that never began go; the tabs that are
/// left become blanks.
void DropStrayClosers(rules::Rewriting& page);

void MergeAdjoiningFonts(rules::Rewriting& page);
void DropEmptyCellForms(rules::Rewriting& page);
void TidyDocumentEnd(rules::Rewriting& page);

}  // namespace quillary::modQuillary

// Repairs of the lists and indents of an assembled page, in running order.
#pragma once

#include "rules/rewriting.h"
#include "text/text.h"

namespace quillary::modQuillary {

void MarkBullets(rules::Rewriting& page);

/// Item 1 decides how the items 2 to 9 are indented; for each size whose item 1
/// stands in the page, one item of each number moves.
void IndentFirstNumbers(rules::Rewriting& page);
void IndentSecondNumbers(rules::Rewriting& page);

/// A page without a face stands in the document's first font. `colour` is the
/// one that the body tag was written with. Throws Failure (subscript) for a
/// font count without a font table.
void SupplyDefaultFont(rules::Rewriting& page, TextView colour);

void MendSymbolBullets(rules::Rewriting& page);
void ShortenBulletIndents(rules::Rewriting& page);
void MendSectionBullets(rules::Rewriting& page);
void MendListIndents(rules::Rewriting& page);
void MendBoldNumbers(rules::Rewriting& page);

}  // namespace quillary::modQuillary

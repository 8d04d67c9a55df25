// The repair of the lists and fonts of an assembled page that is more than a
// chain of rules.
#pragma once

#include "apartment/rtf_to_html_state.h"
#include "rules/rewriting.h"
#include "text/text.h"

namespace quillary::modQuillary {

/// A page without a face stands in the document's first font. `colour` is the
/// one that the body tag was written with. Throws Failure (subscript) for a
/// font count without a font table.
void SupplyDefaultFont(rules::Rewriting& page, const RtfToHtmlState& state, TextView colour);

}  // namespace quillary::modQuillary

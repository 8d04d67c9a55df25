// What becomes of the font tags at the very end of a page: spans, or nothing.
// Both know a tag only by the shapes that the page's own fonts and colours give
// it in the sizes 0 to 30; a tag of any other shape stays.
#pragma once

#include "rules/rewriting.h"

namespace quillary::html_finishing {

/// Every font tag of a known shape becomes a span with the same look. Throws
/// Failure (subscript) for a count that says more than its list holds.
void ConvertFontsToSpans(rules::Rewriting& page);

/// Every font tag of a known shape goes, and every font end.
void RemoveFontTags(rules::Rewriting& page);

}  // namespace quillary::html_finishing

// The last pass over a page that went through the HTML cleaner.
#pragma once

#include "text/text.h"

namespace quillary {
struct Apartment;
}

namespace quillary::html_finishing {

/// Brings wrapped attributes back to their tags and removes the empty shells
/// that the cleaner leaves. The apartment, if there is one, notes the rules
/// that fire.
void LateFinish(Text& html, Apartment* apartment = nullptr);

}  // namespace quillary::html_finishing

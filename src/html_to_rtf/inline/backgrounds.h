// Background colours, which become highlights.
#pragma once

#include "apartment/apartment.h"
#include "text/text.h"

namespace quillary::HTMLRTFConverter {

/// The background that the tag, in upper case, names, as it stands in ColourList after;
/// empty if it names none. Throws as RoundNumberText for the parts of a colour.
Text ReadBackground(Apartment& apartment, TextView tag);

/// Writes the highlight of a tag with a background. Throws Failure (subscript) for a row
/// or a cell outside of tables.
void ApplyBackground(Apartment& apartment, TextView tag);

}  // namespace quillary::HTMLRTFConverter

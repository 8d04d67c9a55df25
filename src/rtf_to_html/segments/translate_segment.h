// Turns one segment of the rewritten RTF, normally one paragraph, into HTML.
#pragma once

#include "apartment/apartment.h"
#include "text/text.h"

namespace quillary::modQuillary {

/// Translates the text of a segment and appends what comes out to HtmlOut. The
/// text is changed in place. Never throws Failure: a statement that fails leaves
/// the texts as they were, and the next one runs.
void TranslateSegment(Apartment& apartment, Text& text);

}  // namespace quillary::modQuillary

// The way of the document text from the tables to the last segment.
#pragma once

#include "apartment/apartment.h"
#include "text/text.h"

namespace quillary::modQuillary {

/// Takes pictures out, brings the text to the one dialect that the segments are
/// read in, and translates segment by segment; the page grows in HtmlOut. The
/// text is changed in place. A failure ends the routine as if it had finished.
void RewriteRtf(Apartment& apartment, Text& text);

}  // namespace quillary::modQuillary

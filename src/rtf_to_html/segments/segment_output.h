// The end of a segment: what it leaves on the page, and for the next one.
#pragma once

#include "apartment/apartment.h"
#include "rtf_to_html/segments/segment.h"
#include "text/text.h"

namespace quillary::modQuillary {

/// Drops the control words that nobody wanted, writes the run to HtmlOut and
/// takes the running values back from it.
void WriteSegment(Apartment& apartment, Segment& segment, Text body);

}  // namespace quillary::modQuillary

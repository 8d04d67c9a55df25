// The entry of a segment: repairs, and the cut into head and body.
#pragma once

#include "apartment/apartment.h"
#include "rtf_to_html/segments/segment.h"

namespace quillary::modQuillary {

/// Where a segment goes from its entry.
enum class Road : std::uint8_t {
  Dropped,  // nowhere: it leaves no trace
  Head,     // straight to its head words, for want of a body
  Body      // through the words of the body first
};

/// Repairs the segment, cuts it into head and body, and takes the brace groups
/// out of the body.
Road EnterSegment(Apartment& apartment, Segment& segment);

/// Ends a centred block that is open if the segment begins a new paragraph.
void CloseCentre(RtfToHtmlState& state, TextView segment);

}  // namespace quillary::modQuillary

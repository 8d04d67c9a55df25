// The cut of the rewritten document into segments.
#pragma once

#include <functional>

#include "apartment/apartment.h"
#include "text/text.h"

namespace quillary::modQuillary {

/// Cuts the text at each "\plain\", from BodyStart on, and hands over one
/// segment after the other. Counts them in SegmentIndex, which the receiver may
/// set back; throws Failure (overflow) when that counter is full.
void SplitSegments(Apartment& apartment, TextView text, const std::function<void(Text&)>& hand_over);

}  // namespace quillary::modQuillary

// What goes wrong inside, as a host sees it.
#pragma once

#include "quillary/Quillaryv8.h"
#include "text/failure.h"

namespace quillary {

ConversionFailed PublicError(const Failure& failure);
ConversionLimit PublicError(const LimitReached& reached);

}  // namespace quillary

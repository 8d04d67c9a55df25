#pragma once

#include "quillary/export.h"

namespace quillary {

/// The version of the library, such as "0.1.0". The text is static.
QUILLARY_API const char* Version();

}  // namespace quillary

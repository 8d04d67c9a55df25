#include "quillary/version.h"

namespace quillary {

const char* Version() { return QUILLARY_VERSION; }

}  // namespace quillary

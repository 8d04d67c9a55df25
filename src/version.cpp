#include "quillary/version.h"

#define QUILLARY_WORDS_OF(number) #number
#define QUILLARY_WORDS(number) QUILLARY_WORDS_OF(number)

namespace quillary {

const char* Version() {
  return QUILLARY_WORDS(QUILLARY_VERSION_MAJOR) "." QUILLARY_WORDS(QUILLARY_VERSION_MINOR) "." QUILLARY_WORDS(
      QUILLARY_VERSION_PATCH);
}

int VersionNumber() { return QUILLARY_VERSION_NUMBER; }

}  // namespace quillary

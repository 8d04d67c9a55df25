/* The version of Quillary. A program may compare the version that it was compiled
   with, the macros, with that of the library at hand, which the functions tell. */
#ifndef QUILLARY_VERSION_H
#define QUILLARY_VERSION_H

#include "quillary/export.h"

#define QUILLARY_VERSION_MAJOR 0
#define QUILLARY_VERSION_MINOR 1
#define QUILLARY_VERSION_PATCH 0

/* 10000 times the major, 100 times the minor and the patch number: 100 for 0.1.0. */
#define QUILLARY_VERSION_NUMBER \
  (QUILLARY_VERSION_MAJOR * 10000 + QUILLARY_VERSION_MINOR * 100 + QUILLARY_VERSION_PATCH)

#ifdef __cplusplus
namespace quillary {

/// The version of the library, such as "0.1.0". The text is static.
QUILLARY_API const char* Version();

/// The same as a number, as QUILLARY_VERSION_NUMBER.
QUILLARY_API int VersionNumber();

}  // namespace quillary
#endif

#endif

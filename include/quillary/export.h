#pragma once

/// Marks what a shared library shows to its hosts.
#if defined(__GNUC__)
#define QUILLARY_API __attribute__((visibility("default")))
#else
#define QUILLARY_API
#endif

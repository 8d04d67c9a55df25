/* Marks what the shared library shows to its hosts. */
#ifndef QUILLARY_EXPORT_H
#define QUILLARY_EXPORT_H

#if defined(__GNUC__)
#define QUILLARY_API __attribute__((visibility("default")))
#else
#define QUILLARY_API
#endif

#endif

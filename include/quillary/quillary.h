/* Quillary's C interface: RTF to HTML, RTF to plain text, and HTML to RTF.

       quillary_converter converter;
       char* page;
       size_t length;
       if (quillary_create(&converter) == QUILLARY_OK &&
           quillary_set_bytes(converter, QUILLARY_RTF_TEXT, rtf, rtf_length) == QUILLARY_OK &&
           quillary_convert(converter, QUILLARY_CONVERT_RTF, QUILLARY_UTF_8, &page, &length) == QUILLARY_OK) {
         fwrite(page, 1, length, stdout);
         quillary_free(page);
       }
       quillary_release(converter);

   Lengths are bytes, without the 0 that ends a text. What the caller gives is copied before a
   function returns and stays the caller's. A text that a function gives belongs to the caller,
   ends in a 0 that its length does not count, may hold further zeros, and is given back with
   quillary_free.

   A function that can fail returns a status; what it would have given is NULL and 0 then, and
   quillary_last_error says more. Null pointers, converters that were never made or are released,
   numbers that name nothing and malformed UTF-8 are errors, never more.

   All functions may be called from any thread. Calls for one converter wait for each other;
   different converters never do. A conversion never depends on another one. */
#ifndef QUILLARY_QUILLARY_H
#define QUILLARY_QUILLARY_H

#include <stddef.h>
#include <stdint.h>

#include "quillary/export.h"
#include "quillary/version.h"

#ifdef __cplusplus
extern "C" {
#endif

/* NOLINTBEGIN(modernize-use-using): C has no other way to name a type. */

/* A converter: eighteen properties. 0 is none; a number is never used again. */
typedef uint64_t quillary_converter;

typedef int quillary_status;
enum {
  QUILLARY_OK = 0,
  QUILLARY_NO_CONVERTER = 1,      /* no converter has this number, or not any more */
  QUILLARY_BAD_ARGUMENT = 2,      /* a null pointer, a number that names nothing, malformed UTF-8 */
  QUILLARY_CONVERSION_FAILED = 3, /* the rich text control or the HTML cleaner refused its text */
  QUILLARY_LIMIT_REACHED = 4,     /* the document is too long, grows too much, or is nested too deep */
  QUILLARY_NO_MEMORY = 5
};

/* The properties, as quillary/Quillaryv8.h tells them one by one. */
typedef int quillary_property;
enum {
  QUILLARY_LINKS = 0,
  QUILLARY_CLEAN_RTF = 1,
  QUILLARY_CLEAN_HTML = 2,
  QUILLARY_XHTML_OUTPUT = 3,
  QUILLARY_DO_DEBUG = 4,
  QUILLARY_RTF_TEXT = 5,
  QUILLARY_PLAIN_TEXT = 6,
  QUILLARY_HTML_TEXT = 7,
  QUILLARY_HTML_TITLE = 8,
  QUILLARY_HTML_COLOUR = 9,
  QUILLARY_GENERATOR = 10,
  QUILLARY_CONVERT_IMAGES = 11,
  QUILLARY_IMAGE_FOLDER = 12,
  QUILLARY_IMAGE_FORMAT = 13,
  QUILLARY_IMAGE_NAME = 14,
  QUILLARY_USE_SPAN_TAGS = 15,
  QUILLARY_TABLE_BORDERS = 16,
  QUILLARY_USE_FONT_TAGS = 17,
  QUILLARY_PROPERTIES = 18 /* how many there are */
};

/* The conversions: what they take, and what they give. */
typedef int quillary_conversion;
enum {
  QUILLARY_CONVERT_RTF = 0,        /* QUILLARY_RTF_TEXT to a whole page */
  QUILLARY_CONVERT_NO_BODY = 1,    /* QUILLARY_RTF_TEXT to what stands inside the body of the page */
  QUILLARY_CONVERT_RAW_HTML = 2,   /* QUILLARY_RTF_TEXT to a fragment without the document shell */
  QUILLARY_CONVERT_RTF_HEADER = 3, /* the page header of QUILLARY_RTF_TEXT to a page, "" if it has none */
  QUILLARY_CONVERT_RTF_PLAIN = 4,  /* QUILLARY_RTF_TEXT to plain text, with CR LF between paragraphs */
  QUILLARY_CONVERT_PLAIN_HTML = 5, /* QUILLARY_PLAIN_TEXT to a whole page */
  QUILLARY_CONVERT_HTML2RTF = 6    /* QUILLARY_HTML_TEXT to RTF */
};

/* How a result is written. RTF is ASCII in each of them. */
typedef int quillary_encoding;
enum {
  QUILLARY_UTF_8 = 0,
  QUILLARY_ASCII = 1, /* a numeric reference for what the encoding lacks in a page, "?" in plain text: */
  QUILLARY_WINDOWS_1252 = 2 /* such a page shows right whatever encoding is declared for it */
};

/* What conversions may reach, as bits. Nothing of this at first: HTML to RTF then reads pictures and
   style sheets only from the folder QUILLARY_IMAGE_FOLDER and below it. */
typedef unsigned quillary_access;
enum {
  QUILLARY_ACCESS_FILES = 1, /* files anywhere that a page names, and that the process may read */
  QUILLARY_ACCESS_WEB = 2    /* pictures of a page on the web, from public hosts; they are kept as files
                                in the folder QUILLARY_IMAGE_FOLDER */
};

/* NOLINTEND(modernize-use-using) */

/* The version of the library, such as "0.1.0", a static text; and as QUILLARY_VERSION_NUMBER. */
QUILLARY_API const char* quillary_version(void);
QUILLARY_API int quillary_version_number(void);

/* What went wrong in the last call on this thread that failed, in English; "" if none has. The text is
   the library's and stays until the next call on this thread. */
QUILLARY_API const char* quillary_last_error(void);

/* Makes a converter with the properties of a new object, which the caller releases.
   QUILLARY_BAD_ARGUMENT, QUILLARY_NO_MEMORY. */
QUILLARY_API quillary_status quillary_create(quillary_converter* converter);

/* Releases a converter. A conversion that runs on another thread comes to its end first there.
   QUILLARY_NO_CONVERTER. */
QUILLARY_API quillary_status quillary_release(quillary_converter converter);

/* Gives a text back. NULL is none. */
QUILLARY_API void quillary_free(char* text);

/* The name of a property, such as "HTML_Title", a static text; NULL for a number that names none. */
QUILLARY_API const char* quillary_property_name(quillary_property property);

/* Sets a property to a text in UTF-8. Characters beyond ASCII are spelled as RTF words in
   QUILLARY_RTF_TEXT and as numeric references in QUILLARY_HTML_TEXT, so that no charset that a document
   declares matters. `text` may be NULL if `length` is 0.
   QUILLARY_NO_CONVERTER, QUILLARY_BAD_ARGUMENT, QUILLARY_LIMIT_REACHED (over 268,435,456 bytes),
   QUILLARY_NO_MEMORY; the property stays as it was then. */
QUILLARY_API quillary_status quillary_set_text(quillary_converter converter, quillary_property property,
                                               const char* text, size_t length);

/* Sets a property to bytes as they stand in a file, each of them its Windows-1252 character: the way for
   RTF, which is ASCII and says itself what its bytes beyond it mean. Errors as quillary_set_text. */
QUILLARY_API quillary_status quillary_set_bytes(quillary_converter converter, quillary_property property,
                                                const void* bytes, size_t length);

/* Sets QUILLARY_HTML_TEXT to a page as it stands in a file: decoded by its byte order mark or the charset
   that it declares, as Windows-1252 if it declares none, and spelled in the way that the rules get right.
   Errors as quillary_set_text; QUILLARY_CONVERSION_FAILED if this machine lacks the charset. */
QUILLARY_API quillary_status quillary_set_page(quillary_converter converter, const void* bytes,
                                               size_t length);

/* A property in UTF-8. QUILLARY_NO_CONVERTER, QUILLARY_BAD_ARGUMENT, QUILLARY_NO_MEMORY. */
QUILLARY_API quillary_status quillary_get_text(quillary_converter converter, quillary_property property,
                                               char** text, size_t* length);

/* Sets what conversions may reach. QUILLARY_NO_CONVERTER, QUILLARY_BAD_ARGUMENT. */
QUILLARY_API quillary_status quillary_allow(quillary_converter converter, quillary_access access);

/* Converts. The property that a conversion takes is empty afterwards, but for the page header and plain
   text; see quillary/Quillaryv8.h. All errors; the converter can be used again after each of them. */
QUILLARY_API quillary_status quillary_convert(quillary_converter converter, quillary_conversion conversion,
                                              quillary_encoding encoding, char** result, size_t* length);

/* A whole file in UTF-8, each of its bytes as its Windows-1252 character; a text of length 0 if it
   cannot be read or has over 268,435,456 bytes. `path` is in UTF-8 and ends in a 0.
   QUILLARY_BAD_ARGUMENT, QUILLARY_NO_MEMORY. */
QUILLARY_API quillary_status quillary_file_to_string(const char* path, char** text, size_t* length);

#ifdef __cplusplus
}
#endif

#endif

// UTF-8 and Windows-1252. Every document passes through one of the two, so they
// need no table of the C library.
#pragma once

#include <string>
#include <string_view>

#include "text/text.h"

namespace quillary {

/// UTF-8 to text. Each longest ill-formed piece gives one U+FFFD; a byte order
/// mark is kept.
Text FromUtf8(std::string_view bytes);
/// Whether bytes are well-formed UTF-8.
bool IsUtf8(std::string_view bytes);
/// Text to UTF-8. A lone surrogate gives U+FFFD.
std::string ToUtf8(TextView text);

/// Each byte as its Windows-1252 character; the undefined bytes 81, 8D, 8F, 90
/// and 9D are the control characters of the same value.
Text FromWindows1252(std::string_view bytes);
/// The other way round; `substitute` stands for every unit that the page lacks.
std::string ToWindows1252(TextView text, char substitute);

/// The byte that a unit of an RTF text stands for: itself, or that of its
/// Windows-1252 character; -1 for a unit that is a character already.
int RawByte(char16_t unit);

}  // namespace quillary

// The charsets that pages of the web name, and their bytes as text.
// Everything here may be called from several threads at once.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "text/text.h"

namespace quillary::platform {

enum class Charset : std::uint8_t {
  Utf8,
  Utf16Le,
  Utf16Be,
  Utf32Le,
  Utf32Be,
  Windows1250,
  Windows1251,
  Windows1252,
  Windows1253,
  Windows1254,
  Windows1255,
  Windows1256,
  Windows1257,
  Windows1258,
  Windows874,
  Iso8859_2,
  Iso8859_3,
  Iso8859_4,
  Iso8859_5,
  Iso8859_6,
  Iso8859_7,
  Iso8859_8,
  Iso8859_10,
  Iso8859_13,
  Iso8859_14,
  Iso8859_15,
  Iso8859_16,
  Ibm866,
  Koi8R,
  Koi8U,
  Macintosh,
  MacCyrillic,
  ShiftJis,
  EucJp,
  Iso2022Jp,
  Gbk,
  Gb18030,
  Big5,
  Big5Hkscs,
  EucKr
};

/// The charset of a label as browsers read it, in any case and with white space
/// around it: "latin1" and "ascii" are Windows-1252, "gb2312" is GBK.
std::optional<Charset> FindCharset(std::string_view label);

/// Decodes `bytes`. Where Windows has a code page of the charset, its table
/// decides. Malformed bytes and undefined pairs give U+FFFD, and take no byte of
/// ASCII with them. The result is well-formed; a byte order mark is kept.
/// Throws Failure (raised) if the C library of this machine lacks the charset.
Text DecodeCharset(Charset charset, std::string_view bytes);

}  // namespace quillary::platform

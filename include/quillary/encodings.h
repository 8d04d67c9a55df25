// Documents and results as bytes. The class Quillaryv8 works on texts of 16-bit units.
#pragma once

#include <string>
#include <string_view>

#include "quillary/export.h"

namespace quillary {

/// The bytes of a file, as they stand there. It refers to the bytes and does not own them.
struct Bytes {
  std::string_view bytes;
};

enum class Encoding { Ascii, Utf8, Windows1252 };

/// A page in an encoding; what the encoding lacks becomes a numeric reference, so that a page in
/// ASCII shows right whatever encoding is declared for it. A lone surrogate becomes U+FFFD.
QUILLARY_API std::string EncodePage(std::u16string_view page, Encoding encoding);

/// RTF in ASCII: units beyond it, which the rules leave as they are, become escapes of Windows-1252 or
/// Unicode words.
QUILLARY_API std::string EncodeRtf(std::u16string_view rtf);

/// A plain text in an encoding; what the encoding lacks becomes "?".
QUILLARY_API std::string EncodePlainText(std::u16string_view text, Encoding encoding);

/// The text of a file: one unit for each byte, the Windows-1252 character of that byte.
QUILLARY_API std::u16string TextOf(Bytes file);

/// Texts in UTF-8. In RTF, characters beyond ASCII become Unicode words, in HTML decimal references, two
/// for a character beyond U+FFFF: one for each surrogate. Then no charset that the document declares
/// matters. Malformed UTF-8 throws ConversionFailed (argument).
QUILLARY_API std::u16string TextOf(std::u8string_view text);
QUILLARY_API std::u16string RtfOf(std::u8string_view rtf);
QUILLARY_API std::u16string HtmlOf(std::u8string_view html);

/// A page as it stands in a file: decoded by its byte order mark or the charset that it declares, as
/// Windows-1252 if it declares none, and spelled in the way that the rules get right. Throws
/// ConversionFailed (raised) if this machine lacks the charset.
QUILLARY_API std::u16string PageOf(Bytes file);

}  // namespace quillary

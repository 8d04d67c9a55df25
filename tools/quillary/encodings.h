// What the program writes: texts as bytes.
#pragma once

#include <string>

#include "text/text.h"

namespace quillary::command_line {

enum class Encoding { Ascii, Utf8, Windows1252 };

/// A page in an encoding; what the encoding lacks becomes a numeric reference,
/// so that the page shows right. A lone surrogate becomes U+FFFD.
std::string EncodePage(TextView page, Encoding encoding);

/// RTF in ASCII: units beyond it, which the rules leave as they are, become escapes
/// of Windows-1252 or Unicode words.
std::string EncodeRtf(TextView rtf);

/// A plain text in an encoding; what the encoding lacks becomes "?".
std::string EncodePlainText(TextView text, Encoding encoding);

}  // namespace quillary::command_line

// What the program writes: texts as bytes.
#pragma once

#include <string>

#include "text/text.h"

namespace quillary::command_line {

enum class Encoding { Ascii, Utf8, Windows1252 };

/// A page in an encoding; what the encoding lacks becomes a numeric reference,
/// so that the page shows right. A lone surrogate becomes U+FFFD.
std::string EncodePage(TextView page, Encoding encoding);

/// A plain text in an encoding; what the encoding lacks becomes "?".
std::string EncodePlainText(TextView text, Encoding encoding);

}  // namespace quillary::command_line

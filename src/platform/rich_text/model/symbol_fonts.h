// What the bytes of symbol fonts look like.
#pragma once

#include "text/text.h"

namespace quillary::platform::rtf {

/// The character that looks like `byte` in this font; the Western character of
/// the byte where the font or the symbol is not known.
char16_t SymbolCharacter(TextView font_name, unsigned char byte);

}  // namespace quillary::platform::rtf

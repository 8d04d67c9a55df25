// Bytes to text, by the tables that Windows uses for its code pages.
// Everything here may be called from several threads at once.
#pragma once

#include <string>
#include <string_view>

#include "text/text.h"

namespace quillary::platform {

/// Whether DecodeBytes knows this code page: 437, 850, 874, 932, 936, 949,
/// 950, 1250 to 1258, 1361 and 10000 (the Macintosh's Western code page).
bool IsKnownCodePage(int code_page);

/// The code page of a font's charset, 0 for a charset that has none of its own:
/// the Western one, that of symbols, the default one and all that are unknown.
int CodePageOfCharset(int charset);

/// Whether `byte` opens a pair in this code page. Never in one of single
/// bytes or an unknown one.
bool IsLeadByte(int code_page, unsigned char byte);

/// Decodes `bytes`. A lead byte takes the next byte with it, whatever that
/// is, unless it is 00. Bytes cut in the middle of a pair must be kept back by
/// the caller (see IsLeadByte). A pair that the code page does not define, and a
/// lead byte that nothing follows, give U+30FB in 932 and "?" in the others with
/// pairs. Undefined single bytes have a character each, a control character of
/// the same value or one of the private use area, so that nothing is lost.
/// Throws Failure: argument for an unknown code page, raised if the C library
/// of this machine lacks it.
Text DecodeBytes(int code_page, std::string_view bytes);

}  // namespace quillary::platform

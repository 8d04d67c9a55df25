// Decodes the hexadecimal escapes of a run by a Windows code page.
#pragma once

#include <memory>

#include "text/text.h"

namespace quillary::platform {

/// Whether escapes are decoded by this code page: 874, 932, 936, 949, 950, 1250,
/// 1251 and 1253 to 1258.
bool DecodesEscapes(int code_page);

class CodePageDecoder {
 public:
  virtual ~CodePageDecoder() = default;

  /// Decodes the escapes (backslash, apostrophe, two hexadecimal digits) of
  /// `run` by a Windows code page. Everything else in the run stays as it is.
  /// Throws Failure (argument) for a code page that DecodesEscapes refuses.
  virtual Text ToString(int code_page, TextView run) = 0;
};

std::unique_ptr<CodePageDecoder> MakeCodePageDecoder();

}  // namespace quillary::platform

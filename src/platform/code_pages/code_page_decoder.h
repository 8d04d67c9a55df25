// Decodes the hexadecimal escapes of a run by a Windows code page.
#pragma once

#include <memory>

#include "text/text.h"

namespace quillary::platform {

class CodePageDecoder {
 public:
  virtual ~CodePageDecoder() = default;

  /// Decodes the escapes (backslash, apostrophe, two hexadecimal digits) of
  /// `run` by Windows code page `code_page`: 874, 932, 936, 949, 950, 1250,
  /// 1251, 1253 to 1258. Everything else in the run stays as it is.
  /// Throws Failure (argument) for any other code page.
  virtual Text ToString(int code_page, TextView run) = 0;
};

std::unique_ptr<CodePageDecoder> MakeCodePageDecoder();

}  // namespace quillary::platform

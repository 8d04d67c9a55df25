// Turns the bytes of an RTF text into characters. A pair of bytes may be split
// over several escapes, over groups, and over an escape and a plain sign.
#pragma once

#include <string>
#include <string_view>

#include "text/encodings.h"
#include "text/text.h"

namespace quillary::platform::rtf {

/// As DecodeBytes, for UTF-8 too (65001); an unknown page counts as Western.
Text DecodePage(int code_page, std::string_view bytes);

class ByteText {
 public:
  bool IsEmpty() const { return bytes_.empty(); }
  int CodePage() const { return code_page_; }
  /// Takes a byte. All that is held must be of the same code page.
  void Add(unsigned char byte, int code_page);
  /// Gives what is held but for the beginning of a character whose other bytes
  /// may still come.
  Text TakeComplete();
  /// Gives all that is held.
  Text TakeAll();
  /// Whether a byte that is held waits for this plain sign.
  bool Wants(char16_t unit) const;

 private:
  std::size_t IncompleteTail() const;

  std::string bytes_;
  int code_page_ = 1252;
};

}  // namespace quillary::platform::rtf

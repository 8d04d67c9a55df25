// Turns the bytes of an RTF text into characters. A pair of bytes may be split
// over several escapes, over groups, and over an escape and a plain character.
#pragma once

#include <string>
#include <string_view>

#include "text/encodings.h"
#include "text/text.h"

namespace quillary::platform::rtf {

inline constexpr int kWesternPage = 1252;

/// The Windows-1252 character of a byte.
char16_t WesternCharacter(unsigned char byte);

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
  /// Forgets what is held.
  void Clear() { bytes_.clear(); }
  /// Whether the first byte of a pair is held and this plain character is its second.
  bool TakesAsSecond(char16_t unit) const;

 private:
  std::size_t IncompleteTail() const;

  std::string bytes_;
  int code_page_ = kWesternPage;
};

}  // namespace quillary::platform::rtf

// Cuts an RTF text into tokens. Any sequence of units gives tokens; nothing is
// thrown and nothing is read twice.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/rich_text/reader/keywords.h"
#include "text/text.h"

namespace quillary::platform::rtf {

struct Token {
  enum class Kind : std::uint8_t {
    End,
    Open,    // {
    Close,   // }
    Word,    // a control word, with its keyword and its number
    Symbol,  // a control symbol, its character in `unit`
    Byte,    // an escape of two hexadecimal digits, its value in `unit`
    Text,    // plain characters from the space to the tilde, in `text`
    Unit,    // one unit beyond those, in `unit`
    Binary,  // the bytes after \bin, in `text`
  };

  Kind kind = Kind::End;
  Keyword keyword = Keyword::Unknown;
  bool has_number = false;
  std::int32_t number = 0;
  char16_t unit = 0;
  TextView text{};  // of a word: its name
};

class Tokens {
 public:
  explicit Tokens(TextView rtf) : rtf_(rtf), last_close_(rtf.rfind(u'}')) {}

  Token Next();
  /// Passes over everything up to the brace that closes the group in which the
  /// last token stood; that brace is the next token.
  void SkipGroup();
  /// What has not been read yet.
  TextView Rest() const { return rtf_.substr(at_); }
  /// Whether the closing brace that was just read is the last of the text.
  bool AtLastClose() const { return at_ == last_close_ + 1; }

 private:
  Token ControlToken();
  Token WordToken();

  TextView rtf_;
  std::size_t last_close_;
  std::size_t at_ = 0;
};

}  // namespace quillary::platform::rtf

// The text of a canonical document while it grows: words, and characters in
// the spelling that the rest of a conversion reads without loss.
#pragma once

#include <cstdint>
#include <utility>

#include "text/text.h"

namespace quillary::platform::rtf {

class CanonicalOutput {
 public:
  explicit CanonicalOutput(Text header) : text_(std::move(header)) {}

  /// Adds control words. Text behind them is set apart by a blank.
  void Words(TextView words) {
    text_ += words;
    blank_due_ = true;
    ends_unicode_ = true;
    ends_in_backslash_ = false;
  }
  /// Adds the word that starts a paragraph anew, where the page begins its work anew.
  void StartAnew() {
    Words(u"\\pard");
    last_unicode_ = LastUnicode::Safe;
  }
  /// Adds what needs no blank behind it: groups and line ends.
  void Raw(TextView raw);
  /// Adds the blank that is due, if one is.
  void SettleBlank();

  /// Adds characters that need no thought. There must be none that Character treats apart.
  void Plain(TextView plain);
  /// Adds one character. `next` is the unit behind it, a mark included;
  /// `words_follow` tells that formatting words come in between.
  void Character(char16_t unit, char16_t next, bool words_follow);
  /// Adds a character as a \u word: one that Windows-1252 lacks or whose escape would be misread.
  void Unicode(std::int32_t number);
  /// Adds a short text that stands apart from what surrounds it and means the
  /// same in every font. Control characters are left out.
  void Spell(TextView text);
  /// Adds a byte of a symbol font.
  void SymbolByte(unsigned char byte, char16_t next, bool words_follow);

  /// Whether a blank added now would be the second in a row.
  bool EndsInBlank() const { return blank_due_ || (!text_.empty() && text_.back() == u' '); }

  /// Adds a word of the language in force where the last \u word needs it: at
  /// the end of the document, and of a row that a paragraph starts anew behind.
  /// In a symbol font a blank at the end stays what it is.
  void PartUnicode(std::int32_t language, bool symbol);

  /// Whether the text since the last blank is an address that the page makes a link.
  bool InAddress() const;

  void Reserve(std::size_t units) { text_.reserve(units); }
  Text Take() { return std::move(text_); }

 private:
  enum class LastUnicode { Safe, Open, OneBlank, Blanks };  // what has followed it

  void Escape(unsigned char byte);
  void Name(TextView word, char16_t character);
  void NoteText(TextView text);

  Text text_;
  bool blank_due_ = false;
  std::size_t blank_end_ = 0;       // where the text ended when its last sign was a blank
  bool ends_in_backslash_ = false;  // an escaped one
  bool in_unicode_ = false;         // no formatting words since the last \u word
  bool ends_unicode_ = false;       // the due blank is of formatting words
  LastUnicode last_unicode_ = LastUnicode::Safe;
};

/// Whether Character treats this unit apart from plain text.
inline bool NeedsSpelling(char16_t unit) {
  return unit > u'~' || unit < u' ' || unit == u'\\' || unit == u'{' || unit == u'}' || unit == u'&' ||
         unit == u'?';
}

}  // namespace quillary::platform::rtf

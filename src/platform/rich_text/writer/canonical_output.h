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

  /// Adds control words. A space separates text after them.
  void Words(TextView words) {
    text_ += words;
    space_due_ = true;
    ends_unicode_ = true;
    ends_in_backslash_ = false;
  }
  /// Adds the word that resets the paragraph's formatting, from which on the page reads afresh.
  void ResetParagraph() {
    Words(u"\\pard");
    last_unicode_ = LastUnicode::Safe;
  }
  /// Adds what needs no space after it: groups and line ends.
  void Raw(TextView raw);
  /// Adds the space that is due, if one is.
  void AddDueSpace();

  /// Adds characters that need no thought. There must be none for which NeedsSpelling holds.
  void Plain(TextView plain);
  /// Adds one character. `next` is the unit after it, structure characters included;
  /// `words_follow` tells that formatting words come in between.
  void Character(char16_t unit, char16_t next, bool words_follow);
  /// Adds a character as a \u word: one that Windows-1252 lacks or whose escape would be misread.
  void Unicode(std::int32_t number);
  /// Adds a short text that has nothing to do with what surrounds it and means
  /// the same in every font. Control characters are left out.
  void Spell(TextView text);
  /// Adds a byte of a symbol font.
  void SymbolByte(unsigned char byte, char16_t next, bool words_follow);

  /// Whether a space added now would be the second in a row.
  bool EndsInSpace() const { return space_due_ || (!text_.empty() && text_.back() == u' '); }

  /// Adds a word of the language in force where the last \u word needs it: at
  /// the end of the document, and of a row before a paragraph that resets its
  /// formatting. In a symbol font a space at the end stays what it is.
  void SeparateUnicode(std::int32_t language, bool symbol);

  /// Whether the text since the last space is an address that the page makes a link.
  bool InAddress() const;

  void Reserve(std::size_t units) { text_.reserve(units); }
  Text Take() { return std::move(text_); }

 private:
  enum class LastUnicode { Safe, Open, OneSpace, Spaces };  // what has followed it

  void Escape(unsigned char byte);
  void Name(TextView word, char16_t character);
  void NoteText(TextView text);

  Text text_;
  bool space_due_ = false;
  std::size_t space_end_ = 0;       // where the text ended when its last character was a space
  bool ends_in_backslash_ = false;  // an escaped one
  bool in_unicode_ = false;         // no formatting words since the last \u word
  bool ends_unicode_ = false;       // the due space is of formatting words
  LastUnicode last_unicode_ = LastUnicode::Safe;
};

/// Whether this unit takes more thought than plain text: it is one for Character.
inline bool NeedsSpelling(char16_t unit) {
  return unit > u'~' || unit < u' ' || unit == u'\\' || unit == u'{' || unit == u'}' || unit == u'&' ||
         unit == u'?';
}

}  // namespace quillary::platform::rtf

#include "platform/rich_text/writer/canonical_output.h"

#include <algorithm>
#include <iterator>

#include "platform/rich_text/model/document_model.h"
#include "text/ascii.h"
#include "text/encodings.h"

namespace quillary::platform::rtf {
namespace {

constexpr TextView kParagraphEnd = u"\r\n\\par ";

bool BeginsEntity(char16_t unit) { return unit == u'#' || IsAsciiLetter(unit); }

/// Whether a unit is written as a control word or an escape, structure characters included.
bool IsWrittenAsWord(char16_t unit) {
  return unit > u'~' || unit == structure::kTab || unit == structure::kLine || unit == structure::kCell ||
         unit == structure::kRow;
}

/// Whether a unit may be written with a backslash in front.
bool MayBecomeWord(char16_t unit) {
  return IsWrittenAsWord(unit) || unit < u' ' || unit == u'\\' || unit == u'{' || unit == u'}' ||
         unit == u'&' || unit == u'?';
}

}  // namespace

void CanonicalOutput::AddDueSpace() {
  if (!space_due_) return;
  text_ += u' ';
  space_due_ = false;
  if (ends_unicode_) in_unicode_ = false;
  if (last_unicode_ == LastUnicode::Open) last_unicode_ = LastUnicode::Spaces;
}

void CanonicalOutput::Raw(TextView raw) {
  text_ += raw;
  space_due_ = false;
  ends_in_backslash_ = false;
  NoteText(raw == kParagraphEnd ? u" " : raw);
}

void CanonicalOutput::Spell(TextView text) {
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] > u'~') {
      Unicode(text[at]);
    } else if (text[at] >= u' ') {
      Character(text[at], at + 1 < text.size() ? text[at + 1] : u'\0', false);
    }
  }
}

void CanonicalOutput::Plain(TextView plain) {
  AddDueSpace();
  text_ += plain;
  space_end_ = plain.ends_with(u' ') ? text_.size() : 0;
  ends_in_backslash_ = false;
  NoteText(plain);
}

// Neither the space of a word nor two spaces in a row separate a \u word from what
// follows.
void CanonicalOutput::NoteText(TextView text) {
  for (const char16_t unit : text) {
    if (last_unicode_ == LastUnicode::Safe) break;
    const bool one_space = last_unicode_ == LastUnicode::OneSpace;
    if (unit == u' ') {
      last_unicode_ = last_unicode_ == LastUnicode::Open ? LastUnicode::OneSpace : LastUnicode::Spaces;
    } else {
      last_unicode_ = one_space ? LastUnicode::Safe : LastUnicode::Open;
    }
  }
  if (last_unicode_ == LastUnicode::Safe) in_unicode_ = false;
}

// The page loses a \u word with no space after it, and what follows. A language
// word leaves a space and nothing else; it needs one in front where the word
// there takes its own away, and none after a space.
void CanonicalOutput::SeparateUnicode(std::int32_t language, bool symbol) {
  if (last_unicode_ == LastUnicode::Safe) return;
  if (!symbol && text_.size() == space_end_) {
    text_.pop_back();
    if (text_.ends_with(u'\\')) text_.replace(text_.size() - 2, 2, u"\\u92?");
    Character(0xA0, u'\0', false);
  }
  const TextView last_word = TextView(text_).substr(std::min(text_.rfind(u'\\'), text_.size()));
  if (space_due_ && last_word.starts_with(u"\\lang")) return AddDueSpace();
  constexpr TextView kKeepSpace[] = {u"\\tab",  u"\\line",    u"\\bullet",
                                     u"\\cell", u"\\strike0", u"\\highlight0"};
  const bool keeps_space = std::any_of(std::begin(kKeepSpace), std::end(kKeepSpace),
                                       [&](TextView word) { return text_.ends_with(word); });
  if (!keeps_space) AddDueSpace();
  Words(u"\\lang" + Decimal(language));
  AddDueSpace();
  last_unicode_ = LastUnicode::Safe;
}

void CanonicalOutput::Unicode(std::int32_t number) {
  AddDueSpace();
  text_ += u"\\u" + Decimal(number) + u"?";
  in_unicode_ = true;
  last_unicode_ = LastUnicode::Open;
  ends_in_backslash_ = false;
}

bool CanonicalOutput::InAddress() const {
  constexpr std::size_t kLongest = 200;
  const TextView text = TextView(text_).substr(text_.size() - std::min(text_.size(), kLongest));
  const std::size_t space = text.rfind(u' ');
  const TextView piece = space == TextView::npos ? text : text.substr(space + 1);
  return !space_due_ && (Holds(piece, u"://") || Holds(piece, u"www.", Compare::IgnoreCase));
}

// An escape straight after an escaped backslash is read as text.
void CanonicalOutput::Escape(unsigned char byte) {
  const char16_t escape[] = {u'\\', u'\'', HexDigit(byte >> 4), HexDigit(byte & 0xF)};
  AddDueSpace();
  text_.append(escape, 4);
  NoteText(u"x");
}

void CanonicalOutput::Name(TextView word, char16_t character) {
  if (ends_in_backslash_) {
    Unicode(character);
    return;
  }
  AddDueSpace();
  Words(word);
  ends_unicode_ = false;
  NoteText(u"x");
}

void CanonicalOutput::SymbolByte(unsigned char byte, char16_t next, bool words_follow) {
  if (byte <= u'~') {
    const bool next_is_word = next >= kSymbolBase + 0x80 && next <= kSymbolBase + 0xFF;
    const char16_t next_byte =
        next > kSymbolBase && !next_is_word ? static_cast<char16_t>(next - kSymbolBase) : next;
    Character(byte, next_byte, words_follow);
  } else {
    Escape(byte);
    ends_in_backslash_ = false;
  }
}

void CanonicalOutput::Character(char16_t unit, char16_t next, bool words_follow) {
  switch (unit) {
    case u'\\':
      // In front of a word it would swallow that word's own backslash.
      if (words_follow || IsWrittenAsWord(next)) {
        Unicode(unit);
      } else {
        AddDueSpace();
        text_ += u"\\\\";
        NoteText(u"\\");
        ends_in_backslash_ = true;
      }
      return;
    case u'{':
      // The page takes it for a group where a space or a word follows.
      if (words_follow || next == u' ' || MayBecomeWord(next)) return Unicode(unit);
      AddDueSpace();
      text_ += u"\\{";
      NoteText(u"{");
      break;
    case u'}':
      // The page drops two of them at the start of a line.
      if (next == u'}' && !space_due_ && text_.ends_with(kParagraphEnd)) return Unicode(unit);
      AddDueSpace();
      text_ += u"\\}";
      NoteText(u"}");
      break;
    case u'&':
      // The page does not escape it. An address would end at the ";" of a \u word's reference.
      if (BeginsEntity(next) && !words_follow && !InAddress()) return Unicode(unit);
      return Plain({&unit, 1});
    case u'?':
      // It would be taken for the end of the \u word in front of it.
      if (in_unicode_ && last_unicode_ != LastUnicode::OneSpace && !(space_due_ && ends_unicode_)) {
        return Unicode(unit);
      }
      return Plain({&unit, 1});
    case 0xA0:
      // After an escaped brace the page takes it for a word.
      if (ends_in_backslash_ || (!space_due_ && text_.ends_with(u"\\}"))) return Unicode(unit);
      AddDueSpace();
      text_ += u"\\~";
      break;
    case 0x2013:
      return Name(u"\\endash", unit);
    case 0x2014:
      return Name(u"\\emdash", unit);
    case 0x2018:
      return Name(u"\\lquote", unit);
    case 0x2019:
      return Name(u"\\rquote", unit);
    case 0x201C:
      return Name(u"\\ldblquote", unit);
    case 0x201D:
      return Name(u"\\rdblquote", unit);
    case 0x2022:
      return Name(u"\\bullet", unit);
    default: {
      if (unit >= u' ' && unit <= u'~') return Plain({&unit, 1});
      const int byte =
          unit >= 0xA0 || unit == 0x81 || unit == 0x8D || unit == 0x8F || unit == 0x90 || unit == 0x9D
              ? RawByte(unit)
              : -1;
      if (byte < 0 || ends_in_backslash_) return Unicode(unit);
      Escape(static_cast<unsigned char>(byte));
    }
  }
  ends_in_backslash_ = false;
}

}  // namespace quillary::platform::rtf

#include "platform/rich_text/writer/canonical_writer.h"

#include <algorithm>

#include "platform/rich_text/writer/canonical_output.h"
#include "platform/rich_text/writer/canonical_paragraphs.h"
#include "platform/rich_text/writer/canonical_tables.h"
#include "text/ascii.h"

namespace quillary::platform::rtf {
namespace {

constexpr std::size_t kPictureLine = 39;  // bytes

bool IsHigh(char16_t unit) { return (unit & 0xFC00) == 0xD800; }
bool IsLow(char16_t unit) { return (unit & 0xFC00) == 0xDC00; }

/// The formatting that is in force, in the numbers of the tables.
struct WrittenFormat {
  std::int32_t font = -1;
  std::int32_t size = -1;
  std::int32_t colour = 0;
  std::int32_t highlight = 0;
  std::int32_t language = 0;
  std::int32_t spacing = 0;
  std::int32_t rise = 0;
  std::uint16_t effects = 0;
};

bool IsMailCharacter(char16_t unit) {
  return IsAsciiAlphanumeric(unit) || unit == u'.' || unit == u'-' || unit == u'_';
}

bool IsDroppedFromMail(char16_t unit) {
  return unit == u':' || unit == u',' || unit == u'+' || unit == u'=' || unit == u'%' || unit == u'~' ||
         unit == u'$';
}

/// Whether a character stands in front of a mail address that the page would cut
/// out at the wrong place, since it takes it for a part of the word and then
/// drops it. The target of a link it has to find as it is.
bool StandsBeforeMail(TextView text, std::size_t at) {
  constexpr std::size_t kLongest = 64;
  if (!IsDroppedFromMail(text[at])) return false;
  std::size_t end = at + 1;
  while (end < text.size() && end - at <= kLongest && IsMailCharacter(text[end])) ++end;
  const bool is_mail =
      end > at + 1 && end + 1 < text.size() && text[end] == u'@' && IsMailCharacter(text[end + 1]);
  return is_mail && !text.substr(0, at).ends_with(u"<mailto");
}

class Writer {
 public:
  explicit Writer(const Document& document)
      : document_(document), tables_(document), output_(tables_.Header() + u"\\viewkind4\\uc1") {
    if (tables_.StartsInFontZero()) format_.font = 0;
    format_.language = document.language;
    constexpr std::size_t kUnitsOfChange = 8;
    const std::size_t least =
        document.text.size() +
        kUnitsOfChange * (document.runs.size() + document.paragraphs.size() + kUnitsOfChange);
    // A canonical document comes back as long as it was; others rarely grow.
    output_.Reserve(std::max(least, std::min(document.source_units, 4 * least)));
  }

  Text Write();

 private:
  WrittenFormat Written(std::uint32_t id) const;
  /// The words that lead from the formatting in force to another.
  Text ChangeWords(const WrittenFormat& to) const;
  std::size_t RunEnd(std::size_t run) const;

  void AddWords(const Text& words) {
    if (!words.empty()) output_.Words(words);
  }
  void WriteParagraphStart(std::size_t index);
  void WriteText(std::size_t begin, std::size_t end);
  bool InSymbolFont() const;
  void WriteStretch(std::size_t begin, std::size_t end, bool words_follow, bool symbol);
  std::size_t WriteUnit(std::size_t at, bool words_follow, bool symbol);
  void WriteStructure(char16_t character);
  void WriteInline();
  void WritePicture(const Picture& picture);
  void WriteData(const std::string& data);
  void WriteLabel(const ListFormat& list, const Paragraph& paragraph, bool with_list);
  void WriteAffix(TextView word, const Text& affix);
  bool LosesOpening(std::size_t index, const Text& character_words) const;

  const Document& document_;
  CanonicalTables tables_;
  CanonicalOutput output_;
  WrittenFormat format_;
  std::size_t run_ = 0;
  std::size_t inline_ = 0;
  std::size_t begin_ = 0;      // of the paragraph
  bool ends_stretch_ = false;  // the next paragraph resets its formatting
  bool item_start_ = false;
  std::uint32_t last_list_ = 0;
};

WrittenFormat Writer::Written(std::uint32_t id) const {
  const CharacterFormat& format = document_.characters[id];
  return {.font = tables_.FontNumber(format.font),
          .size = format.size,
          .colour = tables_.ColourNumber(format.colour),
          .highlight = tables_.ColourNumber(format.highlight),
          .language = format.language != 0 ? format.language : document_.language,
          .spacing = format.spacing,
          .rise = format.rise,
          .effects = format.effects};
}

Text Writer::ChangeWords(const WrittenFormat& to) const {
  const WrittenFormat& from = format_;
  Text words;
  const auto changes = [&](std::uint16_t effect) { return ((from.effects ^ to.effects) & effect) != 0; };
  const auto switches = [&](std::uint16_t effect, TextView on, TextView off) {
    if (changes(effect)) words += (to.effects & effect) != 0 ? on : off;
  };
  if (from.colour != to.colour) AppendNumber(words, u"\\cf", to.colour);
  if (from.highlight != to.highlight) AppendNumber(words, u"\\highlight", to.highlight);
  if (from.spacing != to.spacing) AppendNumber(words, u"\\expndtw", to.spacing);
  if (from.language != to.language) AppendNumber(words, u"\\lang", to.language);
  switches(kUnderline, u"\\ul", u"\\ulnone");
  switches(kBold, u"\\b", u"\\b0");
  switches(kItalic, u"\\i", u"\\i0");
  switches(kStrike, u"\\strike", u"\\strike0");
  if (changes(kSuperscript | kSubscript)) {
    const bool is_super = (to.effects & kSuperscript) != 0;
    words += is_super ? u"\\super" : (to.effects & kSubscript) != 0 ? u"\\sub" : u"\\nosupersub";
  }
  if (from.rise != to.rise) AppendNumber(words, to.rise < 0 ? u"\\dn" : u"\\up", std::abs(to.rise));
  if (from.font != to.font) AppendNumber(words, u"\\f", to.font);
  if (from.size != to.size) AppendNumber(words, u"\\fs", to.size);
  return words;
}

std::size_t Writer::RunEnd(std::size_t run) const {
  return run + 1 < document_.runs.size() ? document_.runs[run + 1].begin : document_.text.size();
}

Text Writer::Write() {
  bool after_row = false;
  for (std::size_t index = 0; index < document_.paragraphs.size(); ++index) {
    const Paragraph& paragraph = document_.paragraphs[index];
    const ParagraphFormat& format = document_.formats[paragraph.format];
    if (index > 0) output_.Raw(after_row ? u"\r\n" : u"\r\n\\par ");
    WriteParagraphStart(index);
    ends_stretch_ = index + 1 == document_.paragraphs.size() || tables_.FormatChanges(index + 1);
    item_start_ = format.list != 0;
    WriteText(begin_, paragraph.end);
    const bool is_last = index + 1 == document_.paragraphs.size();
    if (format.row == 0 && !is_last) output_.AddDueSpace();
    after_row = format.row != 0;
    begin_ = paragraph.end;
  }
  output_.SeparateUnicode(format_.language, InSymbolFont());
  output_.AddDueSpace();
  output_.Raw(u"\r\n\\par }");
  return output_.Take();
}

/// A paragraph in the format of the one before has no words for it. Its
/// character words stand in front of a bullet; after "\pard" and in a row
/// they stand last. A row's definition stands only where it is new: the page
/// drops words in front of a repeated one, and text after it.
void Writer::WriteParagraphStart(std::size_t index) {
  const Paragraph& paragraph = document_.paragraphs[index];
  const ParagraphFormat& format = document_.formats[paragraph.format];
  const ListFormat& list = document_.lists[format.list];
  if (paragraph.stray_bullet && last_list_ != 0) WriteLabel(document_.lists[last_list_], paragraph, false);
  const WrittenFormat first = Written(document_.runs[run_].format);
  const Text character_words = ChangeWords(first);
  if (tables_.FormatChanges(index)) {
    if (format.row != 0) output_.Words(document_.rows[format.row]);
    output_.ResetParagraph();
    if (format.list != 0) WriteLabel(list, paragraph, true);
    const bool is_item = format.list != 0 || IsTypedItem(document_, begin_, paragraph.end);
    AddWords(ParagraphWords(document_, format, is_item));
    AddWords(character_words);
  } else {
    if (format.row != 0) output_.Words(u"\\intbl");
    // The page takes font 1 right in front of a bullet in font 2 for an item without text.
    const bool misread =
        format.list != 0 && list.bullet && tables_.BulletFont(list) == 2 && character_words == u"\\f1";
    if (!misread) AddWords(character_words);
    if (format.list != 0) WriteLabel(list, paragraph, false);
    if (misread) AddWords(character_words);
  }
  if (LosesOpening(index, character_words)) output_.AddDueSpace();
  format_ = first;
  last_list_ = format.list;
}

/// Whether the structure character that the paragraph begins with, often an
/// empty cell, needs a space in front of it: without one the page takes it for
/// one of the paragraph's words and drops it.
bool Writer::LosesOpening(std::size_t index, const Text& character_words) const {
  const Paragraph& paragraph = document_.paragraphs[index];
  const ParagraphFormat& format = document_.formats[paragraph.format];
  if (begin_ == paragraph.end || format.list != 0) return false;
  const char16_t first = document_.text[begin_];
  const bool changes = tables_.FormatChanges(index);
  if (format.row == 0) return changes && first == structure::kLine;
  const bool is_opening = first == structure::kCell || first == structure::kTab || first == structure::kLine;
  return is_opening && (changes || !character_words.empty());
}

void Writer::WriteLabel(const ListFormat& list, const Paragraph& paragraph, bool with_list) {
  if (list.bullet) {
    const Text font = Decimal(tables_.BulletFont(list));
    output_.Raw(u"{\\pntext\\f" + font + u"\\'B7\\tab}");
    if (with_list) {
      output_.Raw(u"{\\*\\pn\\pnlvlblt\\pnf" + font + u"\\pnindent" + Decimal(list.indent) +
                  u"{\\pntxtb\\'B7}}");
    }
    return;
  }
  constexpr TextView kStyles[] = {u"\\pndec", u"\\pnucltr", u"\\pnlcltr", u"\\pnucrm", u"\\pnlcrm"};
  const Label& label = document_.labels[paragraph.label];
  output_.Words(u"{\\pntext\\f0");
  output_.Spell(label.text);
  output_.Raw(u"\\tab}");
  if (!with_list) return;
  output_.Raw(u"{\\*\\pn\\pnlvlbody\\pnf0\\pnindent" + Decimal(list.indent) + u"\\pnstart" +
              Decimal(list.start.value_or(label.ordinal)) +
              Text(kStyles[static_cast<std::size_t>(list.style)]));
  WriteAffix(u"{\\pntxtb", list.before);
  WriteAffix(u"{\\pntxta", list.after);
  output_.Raw(u"}\r\n");
}

void Writer::WriteAffix(TextView word, const Text& affix) {
  if (affix.empty()) return;
  output_.Raw(word);
  const char16_t first = affix.front();
  const bool is_punctuation = first > u' ' && first < u'A' && first != u'-' && !IsAsciiDigit(first);
  if (!is_punctuation) output_.Words(u"");
  output_.Spell(affix);
  output_.Raw(u"}");
}

void Writer::WriteText(std::size_t begin, std::size_t end) {
  std::size_t at = begin;
  while (at < end) {
    const std::size_t run_end = RunEnd(run_);
    const std::size_t stop = std::min(end, run_end);
    const bool symbol = InSymbolFont();
    const bool more = stop < end;
    const WrittenFormat next = more ? Written(document_.runs[run_ + 1].format) : format_;
    const Text words = more ? ChangeWords(next) : Text();
    WriteStretch(at, stop, !words.empty(), symbol);
    AddWords(words);
    format_ = next;
    if (stop == run_end && run_ + 1 < document_.runs.size()) ++run_;
    at = stop;
  }
}

bool Writer::InSymbolFont() const {
  return document_.fonts[document_.characters[document_.runs[run_].format].font].IsSymbol();
}

void Writer::WriteStretch(std::size_t begin, std::size_t end, bool words_follow, bool symbol) {
  const Text& text = document_.text;
  std::size_t at = begin;
  while (at < end) {
    // The rules for bullets take spaces after them for an item without text.
    while (item_start_ && at < end && text[at] == u' ') {
      output_.Character(output_.EndsInSpace() ? char16_t{0xA0} : u' ', u'\0', false);
      ++at;
    }
    if (at == end) return;
    item_start_ = false;
    std::size_t plain = at;
    while (plain < end && !NeedsSpelling(text[plain]) && !StandsBeforeMail(text, plain)) ++plain;
    if (plain > at) output_.Plain(TextView(text).substr(at, plain - at));
    at = plain < end ? WriteUnit(plain, words_follow && plain + 1 == end, symbol) : end;
  }
}

/// Writes what stands at `at`; gives the place after it.
std::size_t Writer::WriteUnit(std::size_t at, bool words_follow, bool symbol) {
  const Text& text = document_.text;
  const char16_t unit = text[at];
  const char16_t next = at + 1 < text.size() ? text[at + 1] : u'\0';
  if (unit < u' ') {
    if (unit == structure::kCell && next == structure::kRow && ends_stretch_)
      output_.SeparateUnicode(format_.language, symbol);
    WriteStructure(unit);
  } else if (symbol && unit >= kSymbolBase + u' ' && unit <= kSymbolBase + 0xFF) {
    output_.SymbolByte(static_cast<unsigned char>(unit - kSymbolBase), next, words_follow);
  } else if (symbol && unit == 0xA0) {
    output_.SymbolByte(0xA0, next, words_follow);  // as which it is read again
  } else if (IsHigh(unit) && IsLow(next)) {
    output_.Unicode(0x10000 + ((unit - 0xD800) << 10) + (next - 0xDC00));
    return at + 2;
  } else if (IsHigh(unit) || IsLow(unit)) {
    output_.Unicode(0xFFFD);
  } else if (StandsBeforeMail(text, at) && !output_.InAddress()) {
    output_.Unicode(unit);
  } else {
    output_.Character(unit, next, words_follow);
  }
  return at + 1;
}

void Writer::WriteStructure(char16_t character) {
  switch (character) {
    case structure::kTab:
      return output_.Words(u"\\tab");
    case structure::kLine:
      return output_.Words(u"\\line");
    case structure::kCell:
      return output_.Words(u"\\cell");
    case structure::kRow:
      return output_.Words(u"\\row");
    case structure::kObject:
      return WriteInline();
    default:
      return;  // the end of a paragraph is written with the next one
  }
}

void Writer::WriteInline() {
  const Inline& content = document_.inlines[inline_++];
  if (content.object == nullptr) return WritePicture(content.picture);
  const EmbeddedObject& object = *content.object;
  output_.Raw(u"{\\object\\objemb");
  output_.Words(u"{\\*\\objclass");
  output_.Spell(object.object_class);
  output_.Raw(u"}");
  if (object.width != 0) output_.Words(u"\\objw" + Decimal(object.width));
  if (object.height != 0) output_.Words(u"\\objh" + Decimal(object.height));
  output_.Raw(u"{\\*\\objdata ");
  WriteData(object.data);
  output_.Raw(u"}{\\result ");
  WritePicture(content.picture);
  output_.Raw(u"}}");
}

// No group within the picture's: the page takes it to end at the first closing brace.
void Writer::WritePicture(const Picture& picture) {
  output_.Raw(u"{\\pict" + picture.words + u" ");
  WriteData(picture.data);
  output_.Raw(u"}");
}

void Writer::WriteData(const std::string& data) {
  Text line;
  for (std::size_t at = 0; at < data.size(); at += kPictureLine) {
    const std::size_t end = std::min(data.size(), at + kPictureLine);
    line = u"\r\n";
    for (std::size_t index = at; index < end; ++index) {
      const auto byte = static_cast<unsigned char>(data[index]);
      line += HexDigit(byte >> 4);
      line += HexDigit(byte & 0xF);
    }
    output_.Raw(line);
  }
  output_.Raw(u"\r\n");
}

}  // namespace

Text WriteCanonical(const Document& document) { return Writer(document).Write(); }

}  // namespace quillary::platform::rtf

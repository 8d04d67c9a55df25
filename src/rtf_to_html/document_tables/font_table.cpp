#include "rtf_to_html/document_tables/font_table.h"

#include "rtf_to_html/document_tables/font_table.rules.h"
#include "rules/run.h"

namespace quillary::modQuillary {
namespace {

constexpr std::int32_t kLargestPointSize = 200;

TextView HtmlSizeOfPoints(std::int32_t points) {
  if (points <= 9) return u"1";
  if (points == 10) return u"2";
  if (points <= 12) return u"3";
  if (points <= 14) return u"4";
  if (points <= 18) return u"5";
  if (points <= 30) return u"6";
  return u"8";  // beyond the scale of a page, where browsers take the largest size
}

// What stands before the first `end`; the whole text if there is none.
Text CutAt(TextView text, char16_t end) { return Text(text.substr(0, text.find(end))); }

// An entry may hold a group of its own in front of the name.
void DropInnerGroup(Text& name) {
  const std::size_t brace = name.find(u'}');
  if (brace != Text::npos) name = Trim(TextView(name).substr(brace + 1));
}

void SizeLists(RtfToHtmlState& state, std::int32_t count) {
  state.FontCount = count;
  state.FontFaces.Size(count);
  state.FontCharsets.Size(count);
}

// "{\fonttbl\f0\fnil Arial;\f1\fnil Symbol;}": no charsets are read here.
void ReadShortForm(RtfToHtmlState& state, const Text& table) {
  SizeLists(state, CountOccurrences(table, u";"));
  std::int32_t end = 1;
  for (std::int32_t i = 1; i <= state.FontCount; ++i) {
    const std::int32_t blank = FindText(end + 1, table, u" ");
    end = FindText(end + 1, table, u";");
    Text name = Trim(Mid(table, blank, end - blank));
    DropInnerGroup(name);
    state.FontFaces.Set(i - 1, Trim(name));
  }
}

// Walks the entries of the long form from name to name.
class EntryWalk {
 public:
  explicit EntryWalk(const Text& table) : table_(table) {}

  /// Reads the next name. Returns false when neither a blank nor the end of an
  /// entry is left and this is the `last` entry.
  bool Next(bool last) {
    blank_ = FindText(end_ + 1, table_, u" ");
    end_ = FindText(end_ + 1, table_, u";}");
    if (blank_ == 0 && end_ == 0) {
      if (last) return false;
      name_ = Trim(Mid(table_, blank_));
    } else {
      name_ = Trim(Mid(table_, blank_, end_ - blank_));
    }
    return true;
  }

  const Text& name() const { return name_; }
  /// Position of the blank in front of the name.
  std::int32_t blank() const { return blank_; }

 private:
  const Text& table_;
  std::int32_t blank_ = 0;
  std::int32_t end_ = 1;
  Text name_;
};

bool IsTag(const Text& name) { return name.size() == 3 && name == ToUpper(name); }

void DropFamilyWords(Text& name) {
  for (const TextView word : {u"\\froman ", u"\\fswiss ", u"\\fscript ", u"\\fmodern ", u"\\fnil "}) {
    ReplaceIn(name, word, u"", Compare::IgnoreCase);
  }
}

bool HoldsCharset(TextView text) { return Holds(text, u"harset", Compare::IgnoreCase); }

void DropCharsetWord(Text& text) {
  for (const TextView word : {u"\\fcharset", u"fcharset", u"charset", u"harset"}) {
    ReplaceIn(text, word, u"", Compare::IgnoreCase);
  }
}

void ReadCharset(RtfToHtmlState& state, const Text& table, const EntryWalk& entry, const Text& name,
                 std::int32_t font) {
  Text charset = HoldsCharset(name) ? CutAt(name, u' ') : Trim(Mid(table, entry.blank() - 10, 12));
  if (HoldsCharset(charset)) {
    DropCharsetWord(charset);
    charset = Trim(CutAt(charset, u' '));
  } else {
    charset = Trim(Mid(table, entry.blank() - 18, 15));
    if (!HoldsCharset(charset)) return;
    DropCharsetWord(charset);
    ReplaceIn(charset, u"arset", u"", Compare::IgnoreCase);
    ReplaceIn(charset, u"rset", u"", Compare::IgnoreCase);
    charset = Trim(CutAt(CutAt(charset, u' '), u'{'));
  }
  if (!IsNumeric(charset)) {
    state.FontCharsets.Set(font, 0);
    return;
  }
  state.FontCharsets.Set(font, ToInteger16(charset));
  if (state.FontCharsets[font] > 2) state.ForeignCharsets = true;
}

// Far Eastern names come as escapes.
void NameFarEasternFont(Text& name) {
  if (!Holds(name, u"\\'")) return;
  const bool korean = name == u"\\'b1\\'bc\\'b8\\'b2" || name == u"\\'b1\\'bc\\'b8\\'b2\\'c3\\'bc";
  name = korean ? u"Gulim" : u"SimSun";
}

// A Cyrillic font whose name lost its first word: its charset is looked for in
// the whole table.
void MendCyrillicName(RtfToHtmlState& state, const Text& table, Text& name, std::int32_t font) {
  if (TrimView(name) != u"New Roman CYR") return;
  name = u"Times New Roman CYR";
  std::int16_t found = 0;
  for (const std::int32_t charset : {255, 204, 238, 161, 162, 186, 177, 178, 128, 129, 134, 136}) {
    if (!Holds(table, u"\\fcharset" + Decimal(charset), Compare::IgnoreCase)) continue;
    found = static_cast<std::int16_t>(charset);
    state.ForeignCharsets = true;
    break;
  }
  state.FontCharsets.Set(font, found);
  if (found >= 1 && font == 1) state.FontCharsets.Set(0, found);
}

void ReadLongForm(RtfToHtmlState& state, const Text& table) {
  SizeLists(state, CountOccurrences(table, u";}"));
  EntryWalk entry(table);
  for (std::int32_t font = 0; font < state.FontCount; ++font) {
    const bool last = font + 1 == state.FontCount;
    if (!entry.Next(last)) break;
    if (IsTag(entry.name()) && !entry.Next(last)) break;
    Text name = entry.name();
    DropFamilyWords(name);
    ReadCharset(state, table, entry, name, font);
    DropInnerGroup(name);
    NameFarEasternFont(name);
    MendCyrillicName(state, table, name, font);
    state.FontFaces.Set(font, Trim(name));
  }
}

}  // namespace

void FillSizeTable(RtfToHtmlState& state) {
  state.SizeTable.Size(kLargestPointSize + 5);
  for (std::int32_t points = 1; points <= kLargestPointSize; ++points) {
    state.SizeTable.Set(points, state.options.spans ? Decimal(points) : Text(HtmlSizeOfPoints(points)));
  }
}

void ReadFontTable(RtfToHtmlState& state, TextView text) {
  bool short_form = false;
  std::int32_t start = FindText(1, text, u"{\\fonttbl{");
  if (start == 0) start = FindText(1, text, u"{\\fonttbl {");
  if (start == 0) {
    start = FindText(1, text, u"{\\fonttbl\\");
    short_form = true;
  }
  if (start == 0) return;
  const std::int32_t end = FindText(start, text, short_form ? u";}" : u";}}");
  const Text table = rules::RunOver(chains::FontTableCleaning, Mid(text, start, end - start + 3));
  if (short_form) {
    ReadShortForm(state, table);
  } else {
    ReadLongForm(state, table);
  }
}

}  // namespace quillary::modQuillary

// Segments: the fast scans against slow ones that do every step by the letter,
// and what one segment leaves for the next. Single operations are in
// segments.jsonl.
#include <gtest/gtest.h>

#include <random>

#include "rtf_to_html/segments/segment.h"
#include "rtf_to_html/segments/segment_brace_groups.h"
#include "rtf_to_html/segments/segment_font_words.h"
#include "rtf_to_html/segments/segment_output.h"
#include "rtf_to_html/segments/segment_tables.h"
#include "rtf_to_html/segments/translate_segment.h"
#include "text/failure.h"

namespace quillary::modQuillary {

void RemoveLanguageWordsAfterSpaces(rules::Rewriting& text);
void RemoveLanguageWords(rules::Rewriting& text);

namespace {

constexpr Compare kIgnoreCase = Compare::IgnoreCase;

// Texts of up to `longest` pieces.
std::vector<Text> RandomTexts(const std::vector<TextView>& pieces, int count, int longest) {
  std::mt19937 random(20);
  std::vector<Text> texts;
  for (int i = 0; i < count; ++i) {
    Text text;
    for (int left = static_cast<int>(random() % static_cast<unsigned>(longest)); left >= 0; --left) {
      text += pieces[random() % pieces.size()];
    }
    texts.push_back(std::move(text));
  }
  return texts;
}

std::string Show(TextView text) {
  std::string shown;
  for (const char16_t unit : text) shown += unit < 0x80 ? static_cast<char>(unit) : '?';
  return shown;
}

// Every group is looked for from the start, and widened unit by unit.
Text GroupsByTheLetter(Text body, bool foreign) {
  for (;;) {
    const std::int32_t start = FindText(1, body, u"{\\");
    if (start == 0) return body;
    std::int32_t end = FindText(start, body, u"}");
    if (end == 0) return body;
    Text group = Mid(body, start, end - start + 1);
    for (int widened = 0; CountOccurrences(group, u"{") != CountOccurrences(group, u"}");) {
      ++end;
      if (++widened >= 3800) return body;
      group = Mid(body, start, end - start + 1);
    }
    const Text before = Left(body, start - 1);
    const Text after = Mid(body, end + 1);
    if (CountOccurrences(group, u"{") >= 2 || Holds(group, u"{\\*\\") || Holds(group, u";}")) {
      body = before + after;
    } else if (foreign && Holds(group, u"\\'")) {
      return body;
    } else {
      body = before + Mid(group, 2, end - start - 1) + u"</b></i></u>" + after;
    }
  }
}

TEST(BraceGroups, ComeOutAsByTheLetter) {
  for (const Text& text :
       RandomTexts({u"{", u"{", u"}", u"}", u"\\", u"{\\", u"{\\*\\", u";", u"\\'", u"b", u" "}, 4000, 14)) {
    for (const char16_t* foreign : {u"yes", u"no"}) {
      RtfToHtmlState state;
      state.ForeignCharsets = foreign;
      Text body = text;
      RemoveBraceGroups(state, body);
      ASSERT_EQ(Show(GroupsByTheLetter(text, state.ForeignCharsets)), Show(body)) << Show(text);
    }
  }
}

TEST(BraceGroups, AreCountedAndWidenedOnlySoFar) {
  RtfToHtmlState state;
  const auto without_groups = [&](Text body) {
    RemoveBraceGroups(state, body);
    return body;
  };
  // Beyond 181 the counts of braces are equal.
  EXPECT_EQ(Text(19, u'}') + u"x", without_groups(u"{\\" + Text(180, u'{') + Text(200, u'}') + u"x"));
  EXPECT_EQ(u"x}}", without_groups(u"{\\" + Text(200, u'{') + Text(181, u'}') + u"x}}"));
  const Text near = u"{\\a{}" + Text(3798, u'n') + u"}x";
  const Text far = u"{\\a{}" + Text(3799, u'n') + u"}{\\b y}";
  EXPECT_EQ(u"x", without_groups(near));
  EXPECT_EQ(far, without_groups(far));
}

TEST(BraceGroups, TakeNoLongerForBeingNested) {
  constexpr std::size_t kDepth = 60000;
  RtfToHtmlState state;
  Text body = Text(kDepth, u'{') + u"\\b x" + Text(kDepth, u'}');
  RemoveBraceGroups(state, body);
  EXPECT_EQ(4 + kDepth * TextView(u"</b></i></u>").size(), body.size());
}

Text LanguagesByTheLetter(Text body, bool after_spaces) {
  const TextView condition = after_spaces ? u"\\par \\lang" : u"\\lang";
  while (Holds(body, condition, kIgnoreCase)) {
    const std::int32_t word = FindText(1, body, after_spaces ? u" \\lang" : u"\\lang", kIgnoreCase);
    const std::int32_t from = word + (after_spaces ? 4 : 3);
    const std::int32_t backslash = FindText(from, body, u"\\");
    const std::int32_t space = FindText(from, body, u" ");
    if (backslash == 0 && space == 0) break;
    const std::int32_t end = backslash == 0 || (space > 0 && space < backslash) ? space : backslash;
    body = Left(body, word - (after_spaces ? 0 : 1)) + Mid(body, end);
  }
  return body;
}

TEST(LanguageWords, GoAsByTheLetter) {
  const std::vector<TextView> pieces = {u"\\par ", u"\\par \\lang",       u" \\lang1", u"\\LANG2",
                                        u"\\lang", u"\\lang3 ",           u"\\",       u" ",
                                        u"x",      u"\\par \\lang\\lang4"};
  for (const Text& text : RandomTexts(pieces, 4000, 9)) {
    rules::Rewriting after_spaces(text);
    RemoveLanguageWordsAfterSpaces(after_spaces);
    ASSERT_EQ(Show(LanguagesByTheLetter(text, true)), Show(after_spaces.text())) << Show(text);
    rules::Rewriting everywhere(text);
    RemoveLanguageWords(everywhere);
    ASSERT_EQ(Show(LanguagesByTheLetter(text, false)), Show(everywhere.text())) << Show(text);
  }
}

// One control word after the other, always from the start of the body.
Text WordsDroppedByTheLetter(Text body) {
  for (;;) {
    const std::int32_t start = FindText(1, body, u"\\");
    if (start == 0) return body;
    const std::int32_t space = FindText(start, body, u" ");
    const std::int32_t brace = FindText(start, body, u"}");
    if (space == 0 && brace == 0) return Left(body, start - 1);
    std::int32_t end = space == 0 || (brace > 0 && brace < space) ? brace : space;
    const std::int32_t tag = FindText(start, body, u"<");
    if (tag > 0 && tag < end) end = tag - 1;
    Text word = Mid(body, start, end - start + 1);
    const std::int32_t unicode = FindText(1, word, u"\\u", kIgnoreCase);
    const Text number = unicode == 0 ? Text() : Mid(word, unicode + 2, 1);
    if (number == u"-" || IsNumeric(number)) {
      word = ReplaceAll(ReplaceAll(word, u"?\\u", u";&#", kIgnoreCase), u"\\u", u"&#", kIgnoreCase);
      word = ReplaceAll(word, u"?", u";");
      if (Holds(word, u"\\")) word.clear();
    } else {
      word.clear();
    }
    body = Left(body, start - 1) + word + Mid(body, end + 1);
  }
}

TEST(LastWords, AreDroppedAsByTheLetter) {
  const std::vector<TextView> pieces = {u"\\u8", u"\\U-9?", u"?", u"\\w", u"\\unit",
                                        u"\\",   u" ",      u"}", u"<",   u"x"};
  for (const Text& text : RandomTexts(pieces, 4000, 9)) {
    Apartment apartment;
    apartment.rtf_to_html.LongSegments = 5;
    Text none;
    Segment segment(none);
    WriteSegment(apartment, segment, text);
    ASSERT_EQ(Show(WordsDroppedByTheLetter(text)), Show(apartment.rtf_to_html.HtmlOut.text())) << Show(text);
  }
}

// The first width word of the text, until nothing changes any more.
Text WidthsByTheLetter(Text text) {
  for (;;) {
    const std::int32_t at = FindText(1, text, u"\\cellx");
    if (at == 0) return text;
    std::int32_t end = FindText(at + 2, text, u"\\");
    if (end - at > 15) end = FindText(at + 2, text, u" ");
    Text width = end == 0 ? Mid(text, at) : Mid(text, at, end - at);
    for (const TextView part : {u"\\cellx", u"cellx", u"\\", u" "}) width = ReplaceAll(width, part, u"");
    if (!IsNumeric(width)) return text;
    const Text replaced = ReplaceAll(text, u"\\cellx" + width, u"\\ÎôÎôÎô", kIgnoreCase);
    if (FindText(1, replaced, u"\\cellx") == at) return replaced;
    text = replaced;
  }
}

TEST(CellWidths, AreReplacedAsByTheLetter) {
  const std::vector<TextView> pieces = {u"\\cellx1", u"\\cellx12", u"\\cellx-3.", u"\\CELLX1",   u"2", u"3 ",
                                        u"\\x",      u"words of ", u"\\cellx",    u"12345678901"};
  for (const Text& text : RandomTexts(pieces, 4000, 8)) {
    ASSERT_EQ(Show(WidthsByTheLetter(text)), Show(MarkCellWidths(text))) << Show(text);
  }
}

// Font words, round by round, each font in every round.
Text FontsByTheLetter(const RtfToHtmlState& state, Text body, std::int32_t& current) {
  std::int32_t rounds = CountOccurrences(body, u"\\f", kIgnoreCase);
  std::int32_t at = 1;
  for (; rounds > 0 && (at = FindText(at, body, u"\\f", kIgnoreCase)) > 0; --rounds, at += 5) {
    Text word = Mid(body, at, 7);
    const Text fourth = Mid(word, 4, 1);
    if (!fourth.empty() && !IsNumeric(fourth) && fourth[0] >= 128) word = Left(word, 3) + u" ";
    std::size_t end = Text::npos;
    for (const char16_t unit : {u' ', u'\\', u'&', u'<'}) {
      if (end == Text::npos) end = word.find(unit, 2);
    }
    if (end == Text::npos) continue;
    word.resize(end);
    for (std::int32_t n = state.FontCount; n >= 0; --n) {
      const Text find = u"\\f" + Decimal(n);
      const Text tag = u"<font FACE=\"" + state.FontFaces[n] + u"\">";
      if (state.FontFaces[n].empty()) {
        body =
            ReplaceAll(ReplaceAll(body, find + u" ", u"", kIgnoreCase), find + u"&nbsp;", u"", kIgnoreCase);
      } else if (WithoutFonts(state)) {
        for (const TextView after : {u"&nbsp;", u""}) {
          body = ReplaceAll(body, find + Text(after), u"", kIgnoreCase);
        }
        body = ReplaceAll(body, find + u" ", u" ", kIgnoreCase);
      } else {
        body = ReplaceAll(body, find + u"&nbsp;&nbsp;&#", tag + u"&#", kIgnoreCase);
        for (const TextView after : {u"&nbsp;", u" ", u""}) {
          body = ReplaceAll(body, find + Text(after), tag, kIgnoreCase);
        }
      }
      if (Holds(word, find, kIgnoreCase)) current = n;
    }
  }
  return body;
}

TEST(FontWords, ComeOutAsByTheLetter) {
  const std::vector<TextView> pieces[] = {
      {u"\\f", u"\\f1", u"\\F2 ", u"\\f0&nbsp;", u"\\f12", u"\\f3&nbsp;&nbsp;&#", u"\\f03 ", u"1", u"2 ",
       u"é", u"\\", u"<", u"x", u" text "},
      // Words within words: what goes makes new ones, also ahead of the place.
      {u"\\f", u"\\f", u"\\f", u"\\", u"F", u"3 ", u"3 ", u"3&nbsp;", u"1", u"1 ", u"4&nbsp;", u"12", u"0 ",
       u"x", u"&nbsp;"}};
  for (const char16_t* body_only : {u"no", u"yes"}) {
    for (const std::vector<TextView>& some : pieces) {
      for (const Text& text : RandomTexts(some, 4000, 14)) {
        RtfToHtmlState state;
        state.BodyOnly = body_only;
        state.FontCount = 12;
        state.FontFaces.Size(12);
        for (const int named : {0, 1, 12}) state.FontFaces.Set(named, u"face " + Decimal(named));
        // A face that holds a font word itself.
        state.FontFaces.Set(2, u"a\\f1 b");
        Text none;
        Segment segment(none);
        rules::Rewriting body(text);
        ReplaceFontWords(state, segment, body);
        std::int32_t current = 0;
        ASSERT_EQ(Show(FontsByTheLetter(state, text, current)), Show(body.text())) << Show(text);
        ASSERT_EQ(current, static_cast<std::int16_t>(state.CurrentFontNumber)) << Show(text);
      }
    }
  }
}

TEST(FontWords, TakeNoLongerForBeingNested) {
  RtfToHtmlState state;
  state.FontCount = 3;
  state.FontFaces.Size(3);
  Text nested;
  for (int i = 0; i < 60000; ++i) nested += u"\\f";
  for (int i = 0; i < 60000; ++i) nested += u"3 ";
  Text none;
  Segment segment(none);
  rules::Rewriting body(nested);
  ReplaceFontWords(state, segment, body);
  // Each round takes a pair away and goes on to the third word, as long as words follow.
  std::size_t pairs = 60000;
  for (std::size_t place = 0; place < 2 * pairs; place += 6) --pairs;
  EXPECT_EQ(4 * pairs, body.text().size());
}

TEST(CellWidths, TakeNoLongerForBeingMany) {
  Text widths;
  for (int twice = 0; twice < 2; ++twice) {
    for (int i = 0; i < 60000; ++i) widths += u"\\cellx" + Decimal(100000 + i);
  }
  EXPECT_EQ(120000 * 7U, MarkCellWidths(widths).size());
}

// A document of two fonts, two colours and the usual sizes.
Apartment Document() {
  Apartment apartment;
  RtfToHtmlState& state = apartment.rtf_to_html;
  state.FontCount = 1;
  state.FontFaces.Size(1);
  state.FontFaces.Set(0, u"Arial");
  state.FontFaces.Set(1, u"Symbol");
  state.ColourCount = 2;
  state.ColourTable.Size(2);
  state.ColourTable.Set(1, u"#0000ff");
  state.ColourTable.Set(2, u"#00ff00");
  state.SizeTable.Size(205);
  for (int points = 1; points <= 200; ++points) state.SizeTable.Set(points, Decimal(points / 4));
  return apartment;
}

// Hands segments over as the split does.
void Translate(Apartment& apartment, std::initializer_list<TextView> segments) {
  apartment.rtf_to_html.SegmentIndex = 0;
  for (const TextView segment : segments) {
    ++apartment.rtf_to_html.SegmentIndex;
    Text text(segment);
    TranslateSegment(apartment, text);
  }
}

TEST(RunningValues, GoFromSegmentToSegment) {
  Apartment apartment = Document();
  Translate(apartment, {u"plain\\f1\\fs24 one", u"plain\\cf1 two", u"plain\\b three\\cf2 green",
                        u"plain four", u"plain\\li400 five", u"plain six", u"plain seven }", u"plain eight"});
  EXPECT_EQ(Show(u"<font FACE=\"Symbol\" SIZE=\"3\" >one</font>"
                 u"<font COLOR=\"#0000ff\" FACE=\"Symbol\" SIZE=\"3\" >two</font>"
                 u"<b><font FACE=\"Symbol\" SIZE=\"3\" COLOR=\"#000000\" >three<font "
                 u"COLOR=\"#00ff00\">green</font></b></b>"
                 u"<font FACE=\"Symbol\" SIZE=\"3\" COLOR=\"#00ff00\" >four</font>"
                 u"<font FACE=\"Symbol\" SIZE=\"3\" COLOR=\"#00ff00\" >five</font>"
                 u"<font FACE=\"Symbol\" SIZE=\"3\" COLOR=\"#00ff00\" >&nbsp;&nbsp;&nbsp;&nbsp;six</font>"
                 u"<font FACE=\"Symbol\" SIZE=\"3\" COLOR=\"#00ff00\" >eight</font>"),
            Show(apartment.rtf_to_html.HtmlOut.text()));
}

TEST(RunningValues, AreThoseOfTheWholePage) {
  std::vector<TextView> pieces = {u"x ", u"\\f1 ", u"\\fs30 ", u"\\cf1 ", u"\\cf2 ", u"\\f0 "};
  Apartment apartment = Document();
  RtfToHtmlState& state = apartment.rtf_to_html;
  int taken = 0;
  for (Text text : RandomTexts(pieces, 300, 3)) {
    const bool words = text.find(u'\\') != Text::npos;
    text.insert(0, u"plain ");
    ++state.SegmentIndex;
    TranslateSegment(apartment, text);
    const std::size_t face = state.HtmlOut.text().rfind(u" FACE=\"");
    if (!words || face == Text::npos) continue;
    ASSERT_EQ(state.HtmlOut.text().substr(face + 7, state.CurrentFace.size() + 1), state.CurrentFace + u"\"");
    ++taken;
  }
  EXPECT_GT(taken, 100);
  // The next document begins a page of its own.
  state.HtmlOut.Edit().assign(state.HtmlOut.text().size() + 100, u'-');
  state.CurrentColour = u"#123456";
  Translate(apartment, {u"plain\\f1 a\\f0 b"});
  EXPECT_EQ(u"#123456", state.CurrentColour);
  EXPECT_EQ(u"Arial", state.CurrentFace);
}

TEST(TranslateSegment, StopsAtTheLimitOfGrowth) {
  Apartment apartment = Document();
  apartment.working_limit = 500;
  EXPECT_THROW(
      {
        for (int i = 0; i < 100; ++i) Translate(apartment, {u"plain\\b some text"});
      },
      LimitReached);
}

TEST(TranslateSegment, PutsTheRestAroundALongBody) {
  Apartment apartment = Document();
  apartment.rtf_to_html.LongSegments = 5;
  apartment.rtf_to_html.HtmlOut.Assign(u"page");
  const Text text(70000, u'x');
  Translate(apartment, {u"plain\\i " + text});
  EXPECT_TRUE(apartment.rtf_to_html.HtmlOut.text() ==
              u"page<i><font FACE=\"Arial\" >" + text + u"</font></i></i>");
}

TEST(TranslateSegment, LivesThroughAnySegment) {
  Apartment apartment = Document();
  apartment.rtf_to_html.LongSegments = INT16_MAX;
  apartment.rtf_to_html.ControlSegments = INT16_MAX;
  Text far(40000, u'x');
  far.insert(0, u"plain\\pard\\").append(u" text");
  Translate(apartment, {u"", u" ", u"\\", u"plain\\f99999\\fs99999\\cf-7\\li99999999999\\u99999999999? x",
                        u"plain {\\", far});
  // A space beyond 16 bits is no cut: there is no head then, and all is body.
  EXPECT_TRUE(Holds(apartment.rtf_to_html.HtmlOut.text(), u"plain</CENTER>text"));
}

}  // namespace
}  // namespace quillary::modQuillary

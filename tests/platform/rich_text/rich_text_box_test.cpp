// The rich text control: what comes out of RTF of many kinds, in canonical
// form and as plain text.
#include "platform/rich_text/rich_text_box.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "text/encodings.h"
#include "text/failure.h"
#include "text/limits.h"

namespace quillary::platform {
namespace {

Text Bytes(std::string_view text) { return FromWindows1252(text); }

std::string Canonical(const Text& rtf) {
  const auto box = MakeRichTextBox();
  box->SetTextRTF(rtf);
  return ToUtf8(box->TextRTF());
}
std::string Canonical(std::string_view rtf) { return Canonical(Bytes(rtf)); }

std::string Plain(std::string_view rtf) {
  const auto box = MakeRichTextBox();
  box->SetTextRTF(Bytes(rtf));
  return ToUtf8(box->PlainText());
}

/// What stands behind the header and in front of the document's end.
std::string Body(std::string_view rtf) {
  const std::string canonical = Canonical(rtf);
  constexpr std::string_view kStart = "\\viewkind4\\uc1";
  constexpr std::string_view kEnd = "\r\n\\par }";
  const std::size_t start = canonical.find(kStart) + kStart.size();
  EXPECT_TRUE(canonical.ends_with(kEnd)) << canonical;
  return canonical.substr(start, canonical.size() - start - kEnd.size());
}

std::string Header(std::string_view rtf) {
  const std::string canonical = Canonical(rtf);
  return canonical.substr(0, canonical.find("\\viewkind4"));
}

/// Two Western fonts, Symbol and Wingdings, and three colours.
std::string Document(std::string_view body) {
  return std::string(
             "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fswiss\\fcharset0 "
             "Arial;}{\\f1\\froman\\fcharset0 "
             "Times New Roman;}{\\f2\\fnil\\fcharset2 Symbol;}{\\f3\\fnil\\fcharset2 Wingdings;}}{\\colortbl "
             ";\\red255\\green0\\blue0;\\red0\\green255\\blue0;\\red0\\green0\\blue255;}") +
         std::string(body) + "}";
}

struct Case {
  const char* what;
  std::string rtf;
  std::string expected;
};

void CheckBodies(const std::vector<Case>& cases) {
  for (const Case& each : cases) {
    EXPECT_EQ(Body(each.rtf), each.expected) << each.what;
    EXPECT_EQ(Canonical(FromUtf8(Canonical(each.rtf))), Canonical(each.rtf)) << each.what << ", once more";
  }
}

void CheckTexts(const std::vector<Case>& cases) {
  for (const Case& each : cases) EXPECT_EQ(Plain(each.rtf), each.expected) << each.what;
}

TEST(RichTextBox, GivesItsOwnDocumentBack) {
  const std::string own =
      "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl{\\f0\\fnil Arial;}{\\f1\\fnil\\fcharset0 "
      "Times New "
      "Roman;}{\\f2\\fnil\\fcharset2 Symbol;}}\r\n"
      "{\\colortbl ;\\red0\\green0\\blue255;\\red0\\green128\\blue0;}\r\n"
      "\\viewkind4\\uc1\\pard\\cf1\\b\\f0\\fs32 Title\\cf0\\b0\\f1\\fs24 \r\n"
      "\\par \r\n"
      "\\par \\pard\\fi720\\sb120 see \\cf2\\b\\strike layer\\cf0\\b0\\strike0  [L^\\super 2\\nosupersub ] "
      "on page "
      "\\lang1024 57\\lang1033 .\r\n"
      "\\par "
      "\\pard{\\pntext\\f2\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf2\\pnindent0{\\pntxtb\\'B7}}\\fi-200\\li200\\b "
      "first\\b0 : item\r\n"
      "\\par \\b{\\pntext\\f2\\'B7\\tab}second\\b0 \r\n"
      "\\par {\\pntext\\f2\\'B7\\tab}\\pard \r\n"
      "\\par behind\r\n"
      "\\par \\trowd\\trgaph108\\trleft-108\\trbrdrt\\brdrs\\brdrw10 \\clbrdrt\\brdrw15\\brdrs "
      "\\cellx1391\\cellx2399\\pard\\intbl\\b one\\cell two\\cell\\row\r\n"
      "\\intbl\\b0 1\\cell\\cell\\row\r\n"
      "\\intbl 2\\cf1\\cell\\cf0 3\\cell\\row\r\n"
      "\\pard{\\pntext\\f0 1.\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart1\\pndec{\\pntxta.}}\r\n"
      "\\fi-360\\li720 a number\r\n"
      "\\par {\\pntext\\f0 2.\\tab}\\endash  and \\ldblquote more\\rdblquote .\\f0 \r\n"
      "\\par }";
  EXPECT_EQ(Canonical(own), own);
}

TEST(RichTextBox, NumbersBulletFontsWithinReachOfTheRules) {
  const auto with_fonts = [](const char* fonts, const char* text) {
    return std::string("{\\rtf1\\ansi{\\fonttbl") + fonts + "}\\viewkind4\\uc1\\pard" + text + "\r\n\\par }";
  };
  const auto fonts_of = [](const std::string& rtf) {
    const std::string header = Header(rtf);
    EXPECT_EQ(Canonical(FromUtf8(Canonical(rtf))), Canonical(rtf)) << rtf;
    return header.substr(header.find("{\\fonttbl") + 9);
  };
  constexpr const char* kItem = "{\\*\\pn\\pnlvlblt\\pnf%{\\pntxtb\\'B7}}";
  const auto item = [&](char font) {
    std::string list = kItem;
    list[list.find('%')] = font;
    return list;
  };
  EXPECT_EQ(fonts_of(with_fonts("{\\f0\\fnil\\fcharset2 Symbol;}{\\f1\\fnil Arial;}",
                                (item('0') + "\\f1 item").c_str())),
            "{\\f0\\fnil Arial;}{\\f1\\fnil\\fcharset2 Symbol;}}\r\n")
      << "font 0";
  EXPECT_EQ(
      fonts_of(with_fonts("{\\f0\\fnil A1;}{\\f1\\fnil B1;}{\\f2\\fnil C1;}{\\f3\\fnil\\fcharset2 Symbol;}",
                          (item('3') + "\\f0 a\\f1 b\\f2 c").c_str())),
      "{\\f0\\fnil A1;}{\\f1\\fnil\\fcharset2 Symbol;}{\\f2\\fnil B1;}{\\f3\\fnil C1;}}\r\n")
      << "font 3";
  EXPECT_EQ(fonts_of(with_fonts("{\\f0\\fnil A1;}{\\f1\\fnil B1;}{\\f2\\fnil\\fcharset2 Symbol;}",
                                (item('2') + "\\f0 a\\f1 b").c_str())),
            "{\\f0\\fnil A1;}{\\f1\\fnil B1;}{\\f2\\fnil\\fcharset2 Symbol;}}\r\n")
      << "font 2 stays";
}

TEST(RichTextBox, TakesNoControlCharacterForAMark) {
  CheckBodies({
      {"in the label of a cell",
       Document("\\trowd\\cellx9\\pard\\intbl{\\*\\pn\\pnlvlbody}{\\pntext 1\\'01\\tab}a\\cell\\row\\pard x"),
       "\\trowd\\cellx9\\pard\\intbl\\f0\\fs24 1 a\\cell\\row\r\n\\pard x"},
      {"in a level text that is none", Document("{\\*\\pn\\pnlvlbody{\\pntxtb{\\leveltext\\'01}}}\\intbl a"),
       "\\pard\\f0\\fs24 1 a"},
      {"in the target of a link",
       Document("{\\field{\\*\\fldinst HYPERLINK \"http://a\\'07b\"}{\\fldrslt c}}"),
       "\\pard\\f0\\fs24 c <http://ab>"},
  });
}

TEST(RichTextBox, SetsOpeningMarksApart) {
  CheckBodies({
      {"an empty cell behind paragraph words",
       Document("\\trowd\\cellx9\\cellx99\\pard\\intbl\\qc\\cell b\\cell\\row\\pard x"),
       "\\trowd\\cellx9\\cellx99\\pard\\intbl\\qc\\f0\\fs24 \\cell b\\cell\\row\r\n\\pard x"},
      {"a line break", Document("a\\par\\pard\\qc\\line b"),
       "\\pard\\f0\\fs24 a\r\n\\par \\pard\\qc \\line b"},
  });
}

/// The page carries bold type from cell to cell of a row, and no further; it
/// takes words in front of "\row" for a cell, and a size in front of a font for
/// the font's old one.
TEST(RichTextBox, SettlesTheFormatsOfMarks) {
  const std::string row = "\\trowd\\cellx1\\cellx2\\cellx3";
  CheckBodies({
      {"cells end what a cell before them had",
       Document("x\\par" + row + "\\pard\\intbl\\b a\\b0\\cell b\\cell c\\cell\\row\\pard x"),
       "\\pard\\f0\\fs24 x\r\n\\par " + row +
           "\\pard\\intbl\\b a\\cell\\b0 b\\b\\cell\\b0 c\\cell\\row\r\n\\pard x"},
      {"bold rows",
       Document(row +
                "\\pard\\intbl\\b a\\cell\\cell c\\cell\\row\\intbl a\\cell\\cell c\\cell\\row\\pard x"),
       row + "\\pard\\intbl\\b\\f0\\fs24 a\\cell\\cell c\\b0\\cell\\row\r\n\\intbl\\b a\\cell\\cell "
             "c\\b0\\cell\\row\r\n\\pard\\b x"},
      {"the mark of a row", Document(row + "\\pard\\intbl a\\cell b\\cell c\\cell\\f1\\row\\pard x"),
       row + "\\pard\\intbl\\f0\\fs24 a\\cell b\\cell c\\cell\\row\r\n\\pard\\f1 x"},
      {"in front of a table and of an item",
       Document("\\b x\\par" + row +
                "\\pard\\intbl\\b0 a\\cell b\\cell c\\cell\\row\\pard\\i x\\par\\pard"
                "{\\*\\pn\\pnlvlblt\\pnf2{\\pntxtb\\'B7}}\\i0 y"),
       "\\pard\\b\\f0\\fs24 x\\b0 \r\n\\par " + row +
           "\\pard\\intbl a\\cell b\\cell c\\cell\\row\r\n"
           "\\pard\\i x\\i0 \r\n\\par "
           "\\pard{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'B7}}y"},
  });
  const std::string own =
      "{\\rtf1\\ansi{\\fonttbl{\\f0\\fnil A1;}{\\f1\\fnil B1;}{\\f2\\fnil C1;}}\\viewkind4\\uc1\\pard";
  EXPECT_EQ(Body(own + "\\f0\\fs32 Title\\f1\\fs24 \r\n\\par \\f2 x\r\n\\par }"),
            "\\pard\\f0\\fs32 Title\\f1 \r\n\\par \\f2\\fs24 x");
}

/// Where two formats differ in what is not written, a second reading sees one.
TEST(RichTextBox, StartsAParagraphAnewOnlyForWhatIsWritten) {
  const std::string item = "{\\pntext\\f2\\'B7\\tab}";
  const std::string list = "{\\*\\pn\\pnlvlblt\\pnf2\\pnindent0{\\pntxtb\\'B7}}";
  CheckBodies({
      {"a list of the label alone", Document("\\pard" + item + list + "a\\par " + item + "\\pard b"),
       "\\pard{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'B7}}\\f0\\fs24 a\r\n"
       "\\par {\\pntext\\f1\\'B7\\tab}b"},
      {"widow control in a list",
       Document("\\pard" + item + list + "\\nowidctlpar a\\par\\widctlpar " + item + "b"),
       "\\pard{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'B7}}\\f0\\fs24 a\r\n"
       "\\par {\\pntext\\f1\\'B7\\tab}b"},
      {"only those, of several in a row", Document("a \\i x\\par{\\pn\\pnlvlblt}\\par\\plain\\fs24\\par"),
       "\\pard\\f0\\fs24 a \\i x\\i0 \r\n\\par "
       "\\pard{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0"
       "{\\pntxtb\\'B7}}\r\n\\par {\\pntext\\f1\\'B7\\tab}"},
  });
}

TEST(RichTextBox, LeavesOutWhatThePageWouldMisread) {
  CheckBodies({
      {"a blank behind formatting words", Document("\\fs24 a\\b\\{x\\}\\b0\\\\y \\i\\'e9"),
       "\\pard\\f0\\fs24 a\\b \\{x\\}\\b0 \\\\y \\i \\'e9"},
      {"hyphens", Document("co\\-op\\_ed"), "\\pard\\f0\\fs24 coop-ed"},
      {"language words that change nothing else", Document("a\\lang1032 b\\lang1055 c\\lang1031 d"),
       "\\pard\\f0\\fs24 abcd"},
      {"a question mark in a Unicode run", Document("\\u945??b? \\u946?c ?"),
       "\\pard\\f0\\fs24 \\u945?\\u63?b\\u63? \\u946?c ?"},
      {"an escape behind a backslash", Document("\\\\\\'e9\\\\\\rquote\\\\\\~"),
       "\\pard\\f0\\fs24 \\u92?\\'e9\\u92?\\rquote \\u92?\\~\\lang1033 "},
      {"a backslash in front of words", Document("c:\\\\\\b x\\\\\\b0\\tab\\\\\\tab"),
       "\\pard\\f0\\fs24 c:\\u92?\\b x\\u92?\\b0\\tab \\u92?\\tab\\lang1033 "},
      {"what looks like an entity", Document("a & b &amp; &#12; R&D"),
       "\\pard\\f0\\fs24 a & b \\u38?amp; \\u38?#12; R\\u38?D\\lang1033 "},
      {"a blank at the end, behind a Unicode run", Document("\\u945?b  "),
       "\\pard\\f0\\fs24 \\u945?b \\~\\lang1033 "},
      {"and behind a backslash", Document("\\u945?\\\\ "), "\\pard\\f0\\fs24 \\u945?\\u92?\\~\\lang1033 "},
      {"braces that close at the start of a line", Document("\\}\\}\\par\\}\\}\\}\\par\\} x"),
       "\\pard\\f0\\fs24 \\}\\}\r\n\\par \\u125?\\}\\}\r\n\\par \\} x"},
      {"an address with parameters", Document("x://a?b=1&c=2 www.d/?e&f&b;g &h"),
       "\\pard\\f0\\fs24 x://a?b=1&c=2 www.d/?e&f&b;g \\u38?h\\lang1033 "},
      {"braces in front of blanks and words", Document("\\{x\\}\\{ \\}\\{\\{\\b y\\b0\\}\\{\\'e9\\}\\{"),
       "\\pard\\f0\\fs24 \\{x\\}\\u123? \\}\\u123?\\u123?\\b y\\b0 \\}\\u123?\\'e9\\}\\u123?\\lang1033 "},
      {"two blanks behind a bullet",
       Document("{\\pntext\\f2\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf2}\\fi-1\\li2   x\\par   y"),
       "\\pard{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'B7}}\\fi-"
       "1\\li2\\f0\\fs24 \\~ x\r\n"
       "\\par {\\pntext\\f1\\'B7\\tab} \\~y"},
      {"left indent first but in lists",
       Document("\\pard\\qr\\fi-5\\li10 a\\par\\pard\\fi-5\\li10\\bullet\\tab b"),
       "\\pard\\li10\\fi-5\\qr\\f0\\fs24 a\r\n\\par \\pard\\fi-5\\li10 \\bullet\\tab b"},
      {"characters beyond the 16-bit plane", Document("\\u-10179?\\u-8704?\\u55357?x"),
       "\\pard\\f0\\fs24 \\u128512?\\u65533?x\\lang1033 "},
  });
}

TEST(RichTextBox, NumbersFontsAndColoursForThePage) {
  EXPECT_EQ(
      Header("{\\rtf1\\ansi\\ansicpg1251\\deff4{\\fonttbl{\\f0\\froman\\fcharset204\\fprq2{\\*\\panose "
             "02}Times New Roman Cyr;}{\\f4\\fswiss\\fcharset0 Never used;}{\\f9\\fnil\\fcharset128 "
             "\\'82\\'6c\\'82\\'72 \\'96\\'be\\'92\\'a9;}{\\f12 IBM;}{\\f13\\fcharset1 @X;}}\\f13 a\\f12 "
             "b\\f9 c\\f0 d}"),
      "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl{\\f0\\froman\\fprq2\\fcharset0 Times New "
      "Roman;}{\\f1\\fnil\\fcharset0 MS Mincho;}{\\f2\\fnil Ibm;}{\\f3\\fnil X;}}\r\n");

  // Number 1 would be taken for the start of number 10, so 1 is given up.
  std::string many = "{\\rtf1{\\fonttbl{\\f0 Arial;}}{\\colortbl;";
  for (int i = 1; i <= 11; ++i) many += "\\red" + std::to_string(i) + "\\green0\\blue0;";
  many += "}";
  for (int i = 1; i <= 11; ++i) many += "\\cf" + std::to_string(i) + " x";
  many += "\\highlight11 y}";
  EXPECT_EQ(Body(many),
            "\\pard\\cf3\\f0\\fs24 x\\cf4 x\\cf5 x\\cf6 x\\cf7 x\\cf8 x\\cf9 x\\cf10 x\\cf11 x\\cf12 x\\cf2 "
            "x\\highlight2 y");
  EXPECT_EQ(Canonical(Canonical(many)), Canonical(many));
}

TEST(RichTextBox, ReadsCharacterFormatting) {
  CheckBodies({
      {"toggles set a state and never flip it", Document("\\b a\\b b\\b1 c\\b0\\b0 d\\b{\\b0 e}f"),
       "\\pard\\b\\f0\\fs24 abc\\b0 de\\b f"},
      {"all underlines are one", Document("\\uldash a\\ulw b\\uldb c\\ulnone d\\ulth e\\ul0 f"),
       "\\pard\\ul\\f0\\fs24 abc\\ulnone d\\ul e\\ulnone f"},
      {"raised and lowered", Document("a\\super b\\sub c\\nosupersub d\\up6 e\\dn4 f\\up0 g\\up99 h"),
       "\\pard\\f0\\fs24 a\\super b\\sub c\\nosupersub d\\up6 e\\dn4 f\\up0 g\\up31 h"},
      {"capitals, hidden and deleted text",
       Document("{\\caps Stra\\'dfe \\'e9}\\v secret\\v0  a{\\deleted b}c"),
       "\\pard\\f0\\fs24 STRA\\'dfE \\'c9 a\\strike b\\strike0 c"},
      {"colours, highlight and background", Document("\\cf3 a\\cf9 b\\highlight2 c\\highlight0\\chcbpat1 d"),
       "\\pard\\cf3\\f0\\fs24 a\\cf0 b\\highlight2 c\\highlight1 d"},
      {"a colour 0 that is a colour",
       "{\\rtf1{\\fonttbl{\\f0 A;}}{\\colortbl\\red0\\green0\\blue0;}x\\cf0 y}", "\\pard\\f0\\fs24 x\\cf1 y"},
      {"a font that is not defined", Document("\\f77 x\\f1 y\\f-3 z"), "\\pard\\f0\\fs24 x\\f1 y\\f0 z"},
      {"plain", Document("\\b\\i\\f1\\fs40\\cf1 x\\plain y"),
       "\\pard\\cf1\\b\\i\\f1\\fs40 x\\cf0\\b0\\i0\\f0\\fs24 y"},
      {"letters of a right-to-left run have their own format",
       Document("\\rtlch\\fcs1\\af1\\ab\\afs28\\ltrch\\fcs0\\f0\\i x{\\rtlch y}"),
       "\\pard\\i\\f0\\fs24 x\\b\\i0\\f1\\fs28 y"},
      {"a style where the paragraph says nothing of its own",
       Document("{\\stylesheet{\\s0 Normal;}{\\s2\\qc\\b\\fs40 Title;}}\\pard\\plain\\s2 "
                "a\\par\\pard\\plain\\s2\\ql\\fs20 b"),
       "\\pard\\qc\\b\\f0\\fs40 a\r\n\\par \\pard\\b0\\fs20 b"},
  });
}

TEST(RichTextBox, ReadsParagraphs) {
  CheckBodies({
      {"words in the control's order",
       Document("\\pard\\tx100\\tqr\\tx200\\qc\\sl360\\slmult1\\sa3\\sb4\\ri5\\li6\\keepn\\keep x"),
       "\\pard\\keep\\keepn\\li6\\ri5\\sb4\\sa3\\sl360\\slmult1\\qc\\tx100\\tqr\\tx200\\f0\\fs24 x"},
      {"only said on change", Document("\\pard\\qc a\\par b\\par\\pard c\\par\\pard d"),
       "\\pard\\qc\\f0\\fs24 a\r\n\\par b\r\n\\par \\pard c\r\n\\par d"},
      {"empty paragraphs and runs of blanks", Document("a   b\\par\\par\\par  c\\tab\\tab d"),
       "\\pard\\f0\\fs24 a   b\r\n\\par \r\n\\par \r\n\\par  c\\tab\\tab d"},
      {"breaks are paragraphs", Document("a\\page b\\sect c\\line d\\\r\ne\\column f"),
       "\\pard\\f0\\fs24 a\r\n\\par b\r\n\\par c\\line d\r\n\\par e\r\n\\par f"},
      {"right to left", "{\\rtf1\\fbidis{\\fonttbl{\\f0 A;}}\\pard a\\par\\pard\\rtlpar b}",
       "\\pard\\ltrpar\\f0\\fs24 a\r\n\\par \\pard\\rtlpar b"},
  });
  EXPECT_EQ(Plain(Document("a\\par b\\par")), "a\r\nb");
  EXPECT_EQ(Plain(Document("a\\par\\par")), "a\r\n");
}

TEST(RichTextBox, DecodesEachFontsOwnCodePage) {
  const std::string fonts =
      "{\\rtf1\\ansi\\ansicpg1252{\\fonttbl{\\f0\\fcharset0 A;}{\\f1\\fcharset204 B;}{\\f2\\fcharset128 "
      "C;}{\\f3\\fcharset161 D;}{\\f4\\fnil E;}}";
  CheckTexts({
      {"Cyrillic is not Latin", fonts + "\\f1 \\'cf\\'f0\\'e8\\f0\\'e9\\f4\\'e9}", "Приéé"},
      {"Greek", fonts + "{\\f3\\'e1\\'e2}\\'e1}", "αβá"},
      {"pairs over several escapes", fonts + "\\f2\\'93\\'fa\\'96{\\'7b}\\'8c\\b\\'ea}", "日本語"},
      {"a pair of an escape and a sign", fonts + "\\f2\\'83A\\'83\\'5c\\'95\\\\z}", "アソ表z"},
      {"a pair that never ends", fonts + "\\f2\\'93\\par x}", "・\r\nx"},
      {"the document's code page", "{\\rtf1\\ansi\\ansicpg1251 \\'cf\\'f0}", "Пр"},
      {"a producer that knows no charsets",
       "{\\rtf1\\ansi\\ansicpg1251{\\fonttbl{\\f0\\fcharset0 A;}}\\f0\\'cf\\'f0}", "Пр"},
      {"raw bytes", "{\\rtf1\\ansi\\ansicpg1251 \xcf\xf0\x84}", "Пр„"},
      {"Unicode with its fallback", fonts + "\\uc2\\u1055\\'8f\\'8f\\u8211--\\uc0\\u945 b\\uc1\\u946{c}}",
       "П–αbβc"},
      {"a fallback that was left out", fonts + "\\u945\\b x\\u946\\par y}", "αxβ\r\ny"},
      {"letters of the Far East", fonts + "{\\loch\\af0\\hich\\af0\\dbch\\af2 \\'93\\'fa}", "日"},
      {"Macintosh", "{\\rtf1\\mac \\'8e}", "é"},
      {"UTF-8", "{\\rtf1\\ansi\\ansicpg65001 \\'c3\\'a9\\'e2\\'82{\\'ac}}", "é€"},
      {"Symbol", Document("{\\f2 ab\\'b7}{\\f3 \\'fc}"), "αβ•✓"},
  });
  EXPECT_EQ(Body(fonts + "\\f1\\'cf\\f0\\'cf}"), "\\pard\\f1\\fs24 \\u1055?\\f0 \\'cf\\lang1033 ");
}

TEST(RichTextBox, ReadsListsOfEveryDialect) {
  const std::string tables =
      "{\\*\\listtable{\\list{\\listlevel\\levelnfc23{\\leveltext\\'01\\u-3913 "
      "?;}{\\levelnumbers;}}\\listid7}"
      "{\\list{\\listlevel\\levelnfc0\\levelstartat3{\\leveltext\\'02\\'00.;}{\\levelnumbers\\'01;}}{"
      "\\listlevel"
      "\\levelnfc4{\\leveltext\\'03(\\'01);}}\\listid8}}{\\*\\listoverridetable{\\listoverride\\listid7"
      "\\listoverridecount0\\ls1}{\\listoverride\\listid8\\ls2}}";
  const std::string bullet = "{\\pntext\\f1\\'B7\\tab}";
  const std::string group = "{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'B7}}";
  CheckBodies({
      {"a word processor's bullets",
       Document(tables + "{\\listtext\\f3 \\'a7\\tab}\\pard\\fi-360\\li720\\ls1 a\\par{\\listtext\\f3 "
                         "\\'a7\\tab}b\\par\\pard c"),
       "\\pard" + bullet + group + "\\fi-360\\li720\\f0\\fs24 a\r\n\\par " + bullet + "b\r\n\\par \\pard c"},
      {"numbers as they were written, or counted",
       Document(tables + "\\ls2 a\\par{\\listtext 9)\\tab}b\\par\\ilvl1 c"),
       "\\pard{\\pntext\\f0 "
       "3.\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart3\\pndec{\\pntxta.}}\r\n\\f0\\fs24 "
       "a\r\n\\par \\pard{\\pntext\\f0 "
       "9)\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart4\\pndec{\\pntxta)}}\r\n"
       "b\r\n\\par \\pard{\\pntext\\f0 "
       "(a)\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart1\\pnlcltr{\\pntxtb("
       "}{\\pntxta)}}\r\nc"},
      {"the oldest kind",
       Document("{\\*\\pn\\pnlvlblt\\pnf2\\pnindent200{\\pntxtb\\'b7}}{\\pntext\\f2\\'b7\\tab}a"),
       "\\pard" + bullet + "{\\*\\pn\\pnlvlblt\\pnf1\\pnindent200{\\pntxtb\\'B7}}\\f0\\fs24 a"},
      {"a label without a list", Document("{\\pntext\\f2\\'b7\\tab}a\\par{\\pntext iv)\\tab}b"),
       "\\pard" + bullet + group +
           "\\f0\\fs24 a\r\n\\par \\pard{\\pntext\\f0 iv)\\tab}{\\*\\pn\\pnlvlbody\\pnf0"
           "\\pnindent0\\pnstart1\\pndec{\\pntxta)}}\r\nb"},
      {"what goes on without a bullet",
       Document("{\\*\\pn\\pnlvlblt\\pnf2}a\\par\\pard{\\*\\pn\\pnlvlcont}b"),
       "\\pard{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'B7}}\\f0\\fs24 "
       "a\r\n\\par \\pard b"},
  });
  EXPECT_EQ(Plain(Document(tables + "\\ls2 a\\par\\ilvl1 b\\par\\ilvl0 c\\par\\pard\\ls1 d")),
            "3.\ta\r\n(a)\tb\r\n4.\tc\r\nd");
  // The ninth level is the last.
  std::string levels;
  for (int i = 0; i < 10; ++i)
    levels += "{\\listlevel\\levelnfc0\\levelstartat" + std::to_string(i) + "1{\\leveltext\\'02\\'0" +
              std::to_string(i) + ".;}}";
  EXPECT_EQ(Plain(Document("{\\*\\listtable{\\list" + levels +
                           "\\listid7}}{\\*\\listoverridetable{\\listoverride\\listid7\\ls1}}"
                           "\\ls1\\ilvl8 a\\par\\ilvl9 b")),
            "81.\ta\r\n82.\tb");
}

TEST(RichTextBox, ReadsTables) {
  const std::string two = "\\trowd\\cellx100\\cellx200";
  CheckBodies({
      {"text in front of a table does not slide into it",
       Document("before" + two + "\\intbl a\\cell b\\cell\\row\\pard after"),
       "\\pard\\f0\\fs24 before\r\n\\par " + two + "\\pard\\intbl a\\cell b\\cell\\row\r\n\\pard after"},
      {"a list in front of a table",
       Document("{\\pntext\\f2\\'b7\\tab}{\\*\\pn\\pnlvlblt\\pnf2}item\\par" + two +
                "\\pard\\intbl a\\cell b\\cell\\row\\pard c"),
       "\\pard{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'B7}}\\f0\\fs24 "
       "item\r\n\\par " +
           two + "\\pard\\intbl a\\cell b\\cell\\row\r\n\\pard c"},
      {"a definition that changes in mid-table, and one that comes last",
       Document(two + "\\intbl a\\cell b\\cell\\row\\intbl c\\cell\\trowd\\trqc\\cellx9 \\row\\pard"),
       two + "\\pard\\intbl\\f0\\fs24 a\\cell b\\cell\\row\r\n\\trowd\\trqc\\cellx9\\pard\\intbl "
             "c\\cell\\row\r\n\\pard "},
      {"formatting runs on across cells and rows",
       Document(two + "\\intbl\\b a\\cell b\\cell\\row\\intbl c\\b0\\cell d\\cell\\row"),
       two + "\\pard\\intbl\\b\\f0\\fs24 a\\cell b\\b0\\cell\\row\r\n\\intbl\\b c\\cell\\b0 "
             "d\\cell\\row\r\n\\pard "},
      {"paragraphs of a cell are lines", Document(two + "\\intbl a\\par b\\cell c\\cell\\row\\pard"),
       two + "\\pard\\intbl\\f0\\fs24 a\\line b\\cell c\\cell\\row\r\n\\pard "},
      {"a row without its end", Document(two + "\\intbl a\\cell b\\cell\\pard c\\par"),
       two + "\\pard\\intbl\\f0\\fs24 a\\cell b\\cell\\row\r\n\\pard c"},
      {"a definition without a row", Document(two + "\\pard a\\par b"), "\\pard\\f0\\fs24 a\r\n\\par b"},
      {"a definition without a row between two rows",
       Document(two + "\\intbl a\\cell b\\cell\\row" + two +
                "\\pard c\\par\\intbl d\\cell e\\cell\\row\\pard"),
       two + "\\pard\\intbl\\f0\\fs24 a\\cell b\\cell\\row\r\n\\pard c\r\n\\par " + two +
           "\\pard\\intbl d\\cell e\\cell\\row\r\n\\pard "},
      {"lists in cells are text", Document(two + "\\intbl{\\*\\pn\\pnlvlblt\\pnf2}a\\par b\\cell\\row"),
       two + "\\pard\\intbl\\f0\\fs24 \\bullet  a\\line \\bullet  b\\cell\\row\r\n\\pard "},
      {"borders",
       Document(
           "\\trowd\\trgaph70\\trleft-5\\trbrdrt\\brdrs\\brdrw10\\clbrdrb\\brdrdb\\brdrw30\\clbrdrt\\brdrnil"
           "\\cellx9\\intbl a\\cell\\row"),
       "\\trowd\\trgaph70\\trleft-5\\trbrdrt\\brdrs\\brdrw10 \\clbrdrb\\brdrw30\\brdrs "
       "\\cellx9\\pard\\intbl\\f0\\fs24 "
       "a\\cell\\row\r\n\\pard "},
  });
  CheckTexts({
      {"cells and rows",
       Document(two + "\\intbl a\\cell b\\cell\\row" + two + "\\intbl c\\cell\\cell\\row\\pard d"),
       "a\tb\r\nc\t\r\nd"},
      {"nested tables keep their text in order",
       Document(two +
                "\\intbl one\\par\\itap2 x\\nestcell y\\nestcell{\\*\\nesttableprops\\trowd\\cellx5\\nestrow}"
                "{\\nonesttables\\par}z\\nestcell{\\*\\nesttableprops\\nestrow}\\pard\\intbl\\cell "
                "two\\cell\\row"),
       "one\r\nx\ty\t\r\nz\t\ttwo\r\n"},
  });
}

TEST(RichTextBox, KeepsLinksFieldsAndNotes) {
  const auto link = [](const std::string& target, const std::string& label) {
    return Document("see {\\field{\\*\\fldinst HYPERLINK " + target + "}{\\fldrslt{\\ul\\cf3 " + label +
                    "}}}.");
  };
  CheckTexts({
      {"a label that is not the target", link("\"http://a.b/c\"", "label"), "see label <http://a.b/c>."},
      {"a label that is", link("\"http://www.a.b/\"", "a.b"), "see a.b."},
      {"a mail address", link("\"mailto:x@y.z\"", "x@y.z"), "see x@y.z."},
      {"a place in the document", link("\\\\l \"top\"", "label"), "see label."},
      {"a target with a place and switches", link("\\\\o \"tip\" \"http://a.b\" \\\\l \"top\"", "label"),
       "see label <http://a.b#top>."},
      {"any other field",
       Document("{\\field{\\*\\fldinst PAGE}{\\fldrslt 7}}{\\field{\\*\\fldinst SYMBOL 183 \\\\f "
                "\"Symbol\"}{\\fldrslt}}"),
       "7•"},
      {"a field within a field",
       Document("{\\field{\\*\\fldinst IF {\\field{\\*\\fldinst X}{\\fldrslt y}}}{\\fldrslt "
                "a{\\field{\\fldrslt b}}c}}"),
       "abc"},
      {"footnotes", Document("a{\\super\\chftn}{\\footnote\\pard{\\super\\chftn} b\\par c}d"), "a1 [1 b c]d"},
      {"text boxes",
       Document("a{\\shp{\\*\\shpinst\\shpleft5{\\sp{\\sn x}{\\sv y}}{\\shptxt b\\par}}{\\shprslt b}}c"),
       "a\r\nb\r\nc"},
  });
  EXPECT_EQ(Body(link("\"http://a.b/c\"", "label")),
            "\\pard\\f0\\fs24 see \\cf1\\ul label <http://a.b/c>\\cf0\\ulnone .");
}

TEST(RichTextBox, LetsNothingHiddenLeak) {
  CheckTexts({
      {"groups for other readers",
       Document("a{\\*\\datastore 0105}{\\*\\themedata 50}{\\*\\unknown{b}\\bin3 }}}c}d"), "ad"},
      {"tables of the document",
       Document(
           "{\\info{\\title T}{\\author A}}{\\*\\revtbl{Unknown;}{Me;}}{\\*\\listtable{\\list{\\listname "
           "N;}}}x"),
       "x"},
      {"headers and footers", Document("{\\header h}{\\footerf f}{\\headerl\\pard l\\par}x"), "x"},
      {"index entries, bookmarks and notes",
       Document("a{\\xe{\\v b}c}{\\tc d}{\\*\\bkmkstart e}{\\*\\annotation f}g"), "ag"},
      {"blanks in front of the table's name", "{\\rtf1 { \\fonttbl {\\f0 Arial;} } { \\b x}}", "  x"},
      {"the Unicode form of two", Document("{\\upr{a}{\\*\\ud{\\u945?}}}"), "α"},
      {"mail that holds a page",
       "{\\rtf1\\ansi\\fromhtml1{\\fonttbl{\\f0 A;}}{\\*\\htmltag64 <p>}\\htmlrtf {\\htmlrtf0 "
       "a{\\*\\htmltag84 "
       "&nbsp;}\\htmlrtf \\'a0\\htmlrtf0 b\\htmlrtf  (shown elsewhere)\\htmlrtf0{\\*\\htmltag4 \\par "
       "}\\htmlrtf  "
       "\\htmlrtf0 c\\htmlrtf\\par}\\htmlrtf0 d}",
       "a\u00a0b c\r\nd"},
  });
}

TEST(RichTextBox, KeepsPicturesAndObjects) {
  const std::string picture =
      "{\\pict{\\*\\picprop{\\sp{\\sn a}{\\sv b}}}\\picscalex100\\picw5\\pngblip\\pichgoal6 89 50\r\n4E4}";
  const std::string canonical = "{\\pict\\pngblip\\picw5\\pichgoal6 \r\n89504e\r\n}";
  CheckBodies({
      {"one picture of two forms",
       Document("a{\\*\\shppict" + picture + "}{\\nonshppict{\\pict\\wmetafile8 0102}}b"),
       "\\pard\\f0\\fs24 a" + canonical + "b"},
      {"the other form alone", Document("{\\nonshppict" + picture + "}"), "\\pard\\f0\\fs24" + canonical},
      {"raw bytes", Document("{\\pict\\pngblip\\picw5\\pichgoal6\\bin3 \x89PN}x"),
       "\\pard\\f0\\fs24" + canonical + "x"},
      {"an object and the picture of its result",
       Document("{\\object\\objemb\\objw1\\objh2{\\*\\objclass Equation.3}{\\*\\objdata 0105}{\\result{" +
                picture + "}}}b"),
       "\\pard\\f0\\fs24{\\object\\objemb{\\*\\objclass Equation.3}\\objw1\\objh2{\\*\\objdata "
       "\r\n0105\r\n}{\\result " +
           canonical + "}}b"},
      {"an object whose result is text",
       Document("{\\object\\objemb{\\*\\objclass X}{\\*\\objdata 01}{\\result text}}"),
       "\\pard\\f0\\fs24 text"},
      {"a picture without data", Document("a{\\pict\\pngblip}b"), "\\pard\\f0\\fs24 ab"},
  });
}

TEST(RichTextBox, TakesPlainText) {
  const auto box = MakeRichTextBox();
  const std::string empty = ToUtf8(box->TextRTF());
  EXPECT_EQ(
      empty,
      "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl{\\f0\\fnil\\fcharset0 MS Sans Serif;}}\r\n"
      "\\viewkind4\\uc1\\pard\\fs17 \r\n\\par }");
  box->SetText(u"");
  EXPECT_EQ(ToUtf8(box->TextRTF()), empty);
  box->SetTextRTF(u"");
  EXPECT_EQ(ToUtf8(box->TextRTF()), empty);
  EXPECT_EQ(box->PlainText(), u"");

  const Text plain = u"{a}\\b\tc\r\n\r\nd\u20ac\u0416\ne\rf";
  box->SetText(plain);
  EXPECT_TRUE(ToUtf8(box->TextRTF())
                  .ends_with("\\fs17 \\{a\\}\\\\b\\tab c\r\n\\par \r\n\\par d\\'80\\u1046?\r\n\\par "
                             "e\r\n\\par f\r\n\\par }"));
  EXPECT_EQ(box->PlainText(), u"{a}\\b\tc\r\n\r\nd\u20ac\u0416\r\ne\r\nf");
  const Text rtf = box->TextRTF();
  box->SetTextRTF(rtf);
  EXPECT_EQ(box->TextRTF(), rtf);
  box->SetTextRTF(u"no header \\b here");
  EXPECT_EQ(box->PlainText(), u"no header \\b here");
  box->SetText(u"line\r\n");
  EXPECT_EQ(box->PlainText(), u"line\r\n");
}

TEST(RichTextBox, MakesADocumentOfAnything) {
  const std::string deep = [] {
    std::string text = "{\\rtf1 ";
    for (int i = 0; i < 100000; ++i) text += "{\\b ";
    text += "x";
    return text + std::string(100000, '}') + "}";
  }();
  CheckTexts({
      {"a hundred thousand groups", deep, "x"},
      {"a control word of a megabyte", "{\\rtf1 a\\" + std::string(1 << 20, 'b') + " c}", "ac"},
      {"numbers beyond 32 bits",
       "{\\rtf1 \\fs99999999999999999999 a\\li-99999999999999\\u99999999999?b\\uc99999999999 c}", "abc"},
      {"binary data cut short", Document("a{\\pict\\pngblip\\bin100000 bcd"), "a"},
      {"missing braces", "{\\rtf1 a{\\b b", "ab"},
      {"surplus braces", "{\\rtf1 a}}b}c", "abc"},
      {"dirt behind the end", std::string("{\\rtf1 a}\0\x1a dirt", 17), "a"},
      {"damaged escapes", "{\\rtf1 \\'zz\\''b0 \\'4}", "zz'b0 4"},
      {"a backslash at the end", "{\\rtf1 a\\", "a"},
      {"nothing but a header", "{\\rtf1}", ""},
      {"cells without a table", "{\\rtf1 a\\cell b\\cell\\row c}", "a\tb\r\nc"},
      {"rows without cells", "{\\rtf1 a\\row b\\row}", "a\r\nb\r\n"},
  });
  const auto box = MakeRichTextBox();
  const TextView too_long(u"x", limits::input_units + 1);  // refused before it is read
  EXPECT_THROW(box->SetTextRTF(too_long), LimitReached);
  EXPECT_THROW(box->SetText(too_long), LimitReached);
}

}  // namespace
}  // namespace quillary::platform

// The canonical form: what it is, and the spellings that differ from the control's
// because the page would misread those.
#include <gtest/gtest.h>

#include <string>

#include "platform/rich_text/rich_text_cases.h"
#include "text/encodings.h"

namespace quillary::platform {
namespace {

TEST(CanonicalForm, GivesItsOwnDocumentBack) {
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
      "\\par after\r\n"
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

TEST(CanonicalForm, NumbersBulletFontsWithinReachOfTheRules) {
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

TEST(CanonicalForm, NumbersFontsAndColoursForThePage) {
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

TEST(CanonicalForm, SeparatesOpeningStructureFromWords) {
  CheckBodies({
      {"an empty cell after paragraph words",
       Document("\\trowd\\cellx9\\cellx99\\pard\\intbl\\qc\\cell b\\cell\\row\\pard x"),
       "\\trowd\\cellx9\\cellx99\\pard\\intbl\\qc\\f0\\fs24 \\cell b\\cell\\row\r\n\\pard x"},
      {"a line break", Document("a\\par\\pard\\qc\\line b"),
       "\\pard\\f0\\fs24 a\r\n\\par \\pard\\qc \\line b"},
  });
}

/// The page carries bold type from cell to cell of a row, and no further; it
/// takes words in front of "\row" for a cell, and a size in front of a font for
/// the font's old one.
TEST(CanonicalForm, ChoosesTheFormatsOfStructureCharacters) {
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
      {"the end of a row", Document(row + "\\pard\\intbl a\\cell b\\cell c\\cell\\f1\\row\\pard x"),
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
TEST(CanonicalForm, ResetsAParagraphOnlyForWhatIsWritten) {
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

TEST(CanonicalForm, LeavesOutWhatThePageWouldMisread) {
  CheckBodies({
      {"a space after formatting words", Document("\\fs24 a\\b\\{x\\}\\b0\\\\y \\i\\'e9"),
       "\\pard\\f0\\fs24 a\\b \\{x\\}\\b0 \\\\y \\i \\'e9"},
      {"hyphens", Document("co\\-op\\_ed"), "\\pard\\f0\\fs24 coop-ed"},
      {"language words that change nothing else", Document("a\\lang1032 b\\lang1055 c\\lang1031 d"),
       "\\pard\\f0\\fs24 abcd"},
      {"an escaped backslash ends a Unicode run as any text does", Document("\\u377? \\\\\\par"),
       "\\pard\\f0\\fs24 \\u377? \\\\"},
      {"a question mark in a Unicode run", Document("\\u945??b? \\u946?c ?"),
       "\\pard\\f0\\fs24 \\u945?\\u63?b\\u63? \\u946?c ?"},
      {"an escape after a backslash", Document("\\\\\\'e9\\\\\\rquote\\\\\\~"),
       "\\pard\\f0\\fs24 \\u92?\\'e9\\u92?\\rquote \\u92?\\~\\lang1033 "},
      {"a backslash in front of words", Document("c:\\\\\\b x\\\\\\b0\\tab\\\\\\tab"),
       "\\pard\\f0\\fs24 c:\\u92?\\b x\\u92?\\b0\\tab \\u92?\\tab\\lang1033 "},
      {"what looks like an entity", Document("a & b &amp; &#12; R&D"),
       "\\pard\\f0\\fs24 a & b \\u38?amp; \\u38?#12; R\\u38?D\\lang1033 "},
      {"a space at the end, after a Unicode run", Document("\\u945?b  "),
       "\\pard\\f0\\fs24 \\u945?b \\~\\lang1033 "},
      {"and after a backslash", Document("\\u945?\\\\ "), "\\pard\\f0\\fs24 \\u945?\\u92?\\~\\lang1033 "},
      {"braces that close at the start of a line", Document("\\}\\}\\par\\}\\}\\}\\par\\} x"),
       "\\pard\\f0\\fs24 \\}\\}\r\n\\par \\u125?\\}\\}\r\n\\par \\} x"},
      {"an address with parameters", Document("x://a?b=1&c=2 www.d/?e&f&b;g &h"),
       "\\pard\\f0\\fs24 x://a?b=1&c=2 www.d/?e&f&b;g \\u38?h\\lang1033 "},
      {"braces in front of spaces and words", Document("\\{x\\}\\{ \\}\\{\\{\\b y\\b0\\}\\{\\'e9\\}\\{"),
       "\\pard\\f0\\fs24 \\{x\\}\\u123? \\}\\u123?\\u123?\\b y\\b0 \\}\\u123?\\'e9\\}\\u123?\\lang1033 "},
      {"two spaces after a bullet",
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

}  // namespace
}  // namespace quillary::platform

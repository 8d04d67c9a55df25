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

/// Documents of so many colours, each of them on one character.
std::string Colours(int count, int highlights, std::string_view between = "") {
  std::string rtf = "{\\rtf1{\\fonttbl{\\f0 A;}}{\\colortbl;";
  for (int i = 1; i <= count; ++i) {
    rtf += "\\red" + std::to_string(i % 256) + "\\green" + std::to_string(i / 256) + "\\blue0;";
  }
  rtf += "}\\viewkind4\\uc1\\pard";
  for (int i = 1; i <= count; ++i) {
    rtf += i <= highlights ? "\\highlight" : "\\cf";
    rtf += std::to_string(i) + " x" + std::string(between);
  }
  return rtf + "\r\n\\par }";
}

/// The numbers of colours in their order.
std::string Numbers(std::string_view rtf) {
  const std::string body = Body(rtf);
  std::string numbers;
  for (std::size_t at = 0; at < body.size(); ++at) {
    for (const std::string_view word : {"\\cf", "\\highlight"}) {
      if (std::string_view(body).substr(at).starts_with(word)) {
        at += word.size();
        numbers +=
            (numbers.empty() ? "" : " ") + body.substr(at, body.find_first_not_of("0123456789", at) - at);
      }
    }
  }
  return numbers;
}

TEST(CanonicalForm, NumbersColoursSoThatNoneBeginsAnother) {
  EXPECT_EQ(Numbers(Colours(9, 0)), "1 2 3 4 5 6 7 8 9");
  EXPECT_EQ(Numbers(Colours(10, 0)), "2 3 4 5 6 7 8 9 10 11");
  EXPECT_EQ(Numbers(Colours(10, 1)), "1 2 3 4 5 6 7 8 9 10") << "no highlight is taken for a colour";
  EXPECT_EQ(Numbers(Colours(18, 0)), "2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19");
  EXPECT_TRUE(Numbers(Colours(19, 0)).starts_with("3 4 5 6 7 8 9 10 11 12 "));
  EXPECT_TRUE(Numbers(Colours(27, 0)).ends_with(" 28 29"));
  EXPECT_TRUE(Numbers(Colours(28, 0)).starts_with("4 5 6 7 8 9 10 "));
  EXPECT_TRUE(Numbers(Colours(90, 0)).starts_with("10 11 "));
  EXPECT_TRUE(Numbers(Colours(90, 0)).ends_with(" 98 99"));
  EXPECT_TRUE(Numbers(Colours(91, 2)).starts_with("1 2 100 101 "));
  EXPECT_TRUE(Numbers(Colours(91, 11)).starts_with("1 2 3 4 5 6 7 8 9 100 101 102 "));
  // More of them than the table has.
  EXPECT_TRUE(Numbers(Colours(301, 0)).ends_with(" 398 399 0"));
  // Where they never stand in one stretch of paragraphs, they keep their order.
  EXPECT_EQ(Numbers(Colours(11, 0, "\\par\\pard\\qc\\cf0 y\\par\\pard")),
            "1 0 2 0 3 0 4 0 5 0 6 0 7 0 8 0 9 0 10 0 11 0");
  EXPECT_EQ(Numbers(Colours(11, 0, "\\par ")), "2 3 4 5 6 7 8 9 10 11 12");
  EXPECT_TRUE(Numbers(Colours(11, 10, "\\par\\pard\\qc\\cf0 y\\par\\pard")).starts_with("2 "));
}

TEST(CanonicalForm, HasNoMoreFontsThanTheTable) {
  std::string rtf = "{\\rtf1{\\fonttbl";
  for (int i = 0; i < 151; ++i) rtf += "{\\f" + std::to_string(i) + " F" + std::to_string(i) + ";}";
  rtf += "}";
  for (int i = 0; i < 151; ++i) rtf += "\\f" + std::to_string(i) + " x";
  rtf += "}";
  EXPECT_TRUE(Header(rtf).ends_with("{\\f149\\fnil F149;}}\r\n"));
  EXPECT_TRUE(Body(rtf).ends_with("\\f149 x\\f0 x"));
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

TEST(CanonicalForm, NumbersFontsOfBullets) {
  const std::string pard = "\\viewkind4\\uc1\\pard";
  CheckBodies({
      {"bullets in fonts 1 and 2",
       "{\\rtf1\\ansi{\\fonttbl{\\f0\\fnil A0;}{\\f1\\fnil\\fcharset2 S1;}{\\f2\\fnil "
       "A2;}{\\f3\\fnil\\fcharset2 S3;}{\\f4\\fnil A4;}}" +
           pard +
           "{\\*\\pn\\pnlvlblt\\pnf1{\\pntxtb\\'B7}}\\f0 a\\f2 b\\f4 "
           "c\\par\\pard{\\*\\pn\\pnlvlblt\\pnf3{\\pntxtb\\'B7}}d\r\n\\par }",
       "\\pard{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'B7}}\\f0\\fs24 a\\f3 "
       "b\\f4 c\r\n\\par \\pard{\\pntext\\f2\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf2\\pnindent0{\\pntxtb\\'B7}}d"},
      {"an item in font 1 with a bullet in font 2",
       "{\\rtf1\\ansi{\\fonttbl{\\f0\\fnil A0;}{\\f1\\fnil A1;}{\\f2\\fnil\\fcharset2 S2;}}" + pard +
           "{\\*\\pn\\pnlvlblt\\pnf2{\\pntxtb\\'B7}}\\f0\\fs24 a\r\n\\par \\f1 b\r\n\\par \\f0 c\r\n\\par "
           "\\f1\\b d\r\n\\par }",
       "\\pard{\\pntext\\f2\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf2\\pnindent0{\\pntxtb\\'B7}}\\f0\\fs24 "
       "a\r\n\\par {\\pntext\\f2\\'B7\\tab}\\f1 b\r\n\\par \\f0{\\pntext\\f2\\'B7\\tab}c\r\n\\par "
       "\\b\\f1{\\pntext\\f2\\'B7\\tab}d"},
      {"and with one in font 1",
       "{\\rtf1\\ansi{\\fonttbl{\\f0\\fnil A0;}{\\f1\\fnil\\fcharset2 S1;}{\\f2\\fnil A2;}}" + pard +
           "{\\*\\pn\\pnlvlblt\\pnf1{\\pntxtb\\'B7}}\\f0\\fs24 a\r\n\\par \\f2 "
           "b\\par\\pard{\\*\\pn\\pnlvlbody}\\f0 c\\par\\f2 d\r\n\\par }",
       "\\pard{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'B7}}\\f0\\fs24 "
       "a\r\n\\par \\f2{\\pntext\\f1\\'B7\\tab}b\r\n\\par \\pard{\\pntext\\f0 "
       "1\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart1\\pndec}\r\n\\f0 c\r\n\\par \\f2{\\pntext\\f0 "
       "2\\tab}d"},
  });
  for (const Case& each : std::vector<Case>{
           {"two bullet fonts of which one is within reach",
            "{\\rtf1\\ansi{\\fonttbl{\\f0\\fnil A0;}{\\f1\\fnil\\fcharset2 S1;}{\\f2\\fnil "
            "A2;}{\\f3\\fnil\\fcharset2 S3;}{\\f4\\fnil A4;}}" +
                pard +
                "{\\*\\pn\\pnlvlblt\\pnf1{\\pntxtb\\'B7}}\\f0 a\\f2 b\\f4 "
                "c\\par\\pard{\\*\\pn\\pnlvlblt\\pnf3{\\pntxtb\\'B7}}d\r\n\\par }",
            "{\\rtf1\\ansi\\deff0\\deflang1033{\\fonttbl{\\f0\\fnil A0;}{\\f1\\fnil\\fcharset2 "
            "S1;}{\\f2\\fnil\\fcharset2 S3;}{\\f3\\fnil A2;}{\\f4\\fnil A4;}}\r\n"},
           {"three bullet fonts",
            "{\\rtf1\\ansi{\\fonttbl{\\f0\\fnil\\fcharset2 S0;}{\\f1\\fnil A1;}{\\f2\\fnil "
            "A2;}{\\f3\\fnil\\fcharset2 S3;}{\\f4\\fnil\\fcharset2 S4;}}" +
                pard +
                "{\\*\\pn\\pnlvlblt\\pnf0{\\pntxtb\\'B7}}\\f1 a\\f2 "
                "b\\par\\pard{\\*\\pn\\pnlvlblt\\pnf3{\\pntxtb\\'B7}}c\\par\\pard{\\*\\pn\\pnlvlblt\\pnf4{"
                "\\pntxtb\\'B7}}d\r\n\\par }",
            "{\\rtf1\\ansi\\deff0\\deflang1033{\\fonttbl{\\f0\\fnil A1;}{\\f1\\fnil\\fcharset2 "
            "S0;}{\\f2\\fnil\\fcharset2 S3;}{\\f3\\fnil A2;}{\\f4\\fnil\\fcharset2 S4;}}\r\n"},
           {"bullet fonts alone",
            "{\\rtf1\\ansi{\\fonttbl{\\f0\\fnil\\fcharset2 S0;}{\\f1\\fnil\\fcharset2 S1;}}" + pard +
                "{\\*\\pn\\pnlvlblt\\pnf0{\\pntxtb\\'B7}}\\f0 "
                "a\\par\\pard{\\*\\pn\\pnlvlblt\\pnf1{\\pntxtb\\'B7}}\\f1 b\r\n\\par }",
            "{\\rtf1\\ansi\\deff0\\deflang1033{\\fonttbl{\\f0\\fnil\\fcharset2 S0;}{\\f1\\fnil\\fcharset2 "
            "S1;}}\r\n"},
           {"bullets without a font of theirs",
            "{\\rtf1\\ansi{\\fonttbl{\\f0\\fnil A0;}{\\f1\\fnil A1;}{\\f2\\fnil A2;}{\\f3\\fnil A3;}}" +
                pard + "{\\*\\pn\\pnlvlblt}\\f0 a\\f1 b\\f2 c\\f3 d\r\n\\par }",
            "{\\rtf1\\ansi\\deff0\\deflang1033{\\fonttbl{\\f0\\fnil A0;}{\\f1\\fnil\\fcharset2 "
            "Symbol;}{\\f2\\fnil A1;}{\\f3\\fnil A2;}{\\f4\\fnil A3;}}\r\n"},
           {"no text in a bullet font",
            "{\\rtf1\\ansi{\\fonttbl{\\f0\\fnil A0;}{\\f1\\fnil A1;}{\\f2\\fnil A2;}{\\f3\\fnil\\fcharset2 "
            "S3;}}" +
                pard + "\\f0 a\\f1 b\\f2 c\\f3 d\r\n\\par }",
            "{\\rtf1\\ansi\\deff0\\deflang1033{\\fonttbl{\\f0\\fnil A0;}{\\f1\\fnil A1;}{\\f2\\fnil "
            "A2;}{\\f3\\fnil\\fcharset2 S3;}}\r\n"},
       }) {
    EXPECT_EQ(Header(each.rtf), each.expected) << each.what;
  }
}

TEST(CanonicalForm, SeparatesStructureInFrontFromWords) {
  const std::string two = "\\trowd\\cellx100\\cellx200";
  const std::string bullets = "{\\*\\pn\\pnlvlblt\\pnf2{\\pntxtb\\'B7}}";
  const std::string bullet = "{\\pntext\\f1\\'B7\\tab}";
  const std::string bullet_list = "{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'B7}}";
  CheckBodies({
      {"words in front of an empty first cell",
       Document(two + "\\pard\\intbl a\\cell b\\cell\\row\\b\\intbl\\cell c\\cell\\row\\intbl\\cell "
                      "d\\cell\\row\\intbl\\i\\tab e\\cell\\line f\\cell\\row\\pard g"),
       two + "\\pard\\intbl\\f0\\fs24 a\\cell b\\cell\\row\r\n\\intbl\\cell\\b c\\cell\\row\r\n\\intbl\\b0 "
             "\\cell\\b d\\b0\\cell\\row\r\n\\intbl\\b\\i \\tab e\\cell\\line "
             "f\\b0\\i0\\cell\\row\r\n\\pard\\b\\i g"},
      {"lines and tabs in front",
       Document("\\line a\\par\\pard\\qc\\tab b\\par\\pard\\line c\\par\\b\\line d\\par\\pard" + bullets +
                "\\line e\\par\\pard\\par\\qr\\line"),
       "\\pard\\f0\\fs24 \\line a\r\n\\par \\pard\\qc\\tab b\r\n\\par \\pard \\line c\r\n\\par \\line\\b "
       "d\r\n\\par \\pard" +
           bullet + bullet_list + "\\line e\r\n\\par \\pard \r\n\\par \\pard\\qr \\line "},
      {"empty rows", Document(two + "\\pard\\intbl\\cell\\cell\\row\\intbl\\cell\\cell\\row\\pard"),
       two + "\\pard\\intbl\\f0\\fs24 \\cell\\cell\\row\r\n\\intbl\\cell\\cell\\row\r\n\\pard "},
      {"what may stand right after the words of affixes",
       Document("\\pard{\\*\\pn\\pnlvlbody{\\pntxtb 3.}{\\pntxta -}}x\\par\\pard{\\*\\pn\\pnlvlbody{\\pntxtb "
                "A}{\\pntxta @}}x\\par\\pard{\\*\\pn\\pnlvlbody{\\pntxtb #}{\\pntxta "
                "[}}x\\par\\pard{\\*\\pn\\pnlvlbody{\\pntxtb \\'e9}{\\pntxta "
                "!}}x\\par\\pard{\\*\\pn\\pnlvlbody{\\pntxtb 9:}{\\pntxta "
                ";}}x\\par\\pard{\\*\\pn\\pnlvlbody{\\pntxtb 0}{\\pntxta "
                "/}}x\\par\\pard{\\*\\pn\\pnlvlbody{\\pntxtb }{\\pntxta :}}x\\par"),
       "\\pard{\\pntext\\f0 3.1-\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart1\\pndec{\\pntxtb "
       "3.}{\\pntxta -}}\r\n\\f0\\fs24 x\r\n\\par \\pard{\\pntext\\f0 "
       "A1@\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart1\\pndec{\\pntxtb A}{\\pntxta@}}\r\nx\r\n\\par "
       "\\pard{\\pntext\\f0 "
       "#1[\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart1\\pndec{\\pntxtb#}{\\pntxta [}}\r\nx\r\n\\par "
       "\\pard{\\pntext\\f0 \\u233?1!\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart1\\pndec{\\pntxtb "
       "\\u233?}{\\pntxta!}}\r\nx\r\n\\par \\pard{\\pntext\\f0 "
       "9:1;\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart1\\pndec{\\pntxtb "
       "9:}{\\pntxta;}}\r\nx\r\n\\par \\pard{\\pntext\\f0 "
       "01/\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart1\\pndec{\\pntxtb 0}{\\pntxta/}}\r\nx\r\n\\par "
       "\\pard{\\pntext\\f0 1:\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart1\\pndec{\\pntxta:}}\r\nx"},
  });
}

TEST(CanonicalForm, SpellsWhatThePageWouldMisread) {
  const std::string two = "\\trowd\\cellx100\\cellx200";
  const std::string bullet = "{\\pntext\\f1\\'B7\\tab}";
  CheckBodies({
      {"symbols of symbol fonts",
       Document("{\\f2 a\\{ \\}\\\\\\b b\\b0?&x "
                "\\'a0\\~\\'b7\\'81\\'20\\u61550?\\u61623?\\u8226?\\u233?\\emdash\\\\}c{\\f2\\\\}{\\f3 "
                "\\{\\{ \\'fc\\{\\'fc}"),
       "\\pard\\f1\\fs24 a\\u123? \\}\\u92?\\b b\\b0 ?\\u38?x \\'a0\\'a0\\'b7\\'81 n\\'b7\\bullet "
       "\\'e9\\emdash \\u92?\\f0 c\\f1 \\u92?\\f2 \\u123?\\u123? \\'fc\\u123?\\'fc\\lang1033 "},
      {"halves of characters",
       Document("\\u-10179?x\\u-8704?\\u-10179?\\u-8704?\\u-10179?\\u-10179?\\u-8704?\\u-8704?\\u-9217?\\u-"
                "9216?\\u-8193?\\u-8192?\\u-10241?"),
       "\\pard\\f0\\fs24 "
       "\\u65533?x\\u65533?\\u128512?\\u65533?\\u128512?\\u65533?\\u1113088?\\u65533?\\u57344?\\u55295?"
       "\\lang1033 "},
      {"characters in front of mail addresses",
       Document(" x:a.b-c_1@d.e x,a.b-c_1@d.e x+a.b-c_1@d.e x=a.b-c_1@d.e x%a.b-c_1@d.e x~a.b-c_1@d.e "
                "x$a.b-c_1@d.e x;a.b-c_1@d.e x!a.b-c_1@d.e :@d :a@ :a@;  :a "
                ":aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa@b "
                ":aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa@b :a@b"),
       "\\pard\\f0\\fs24  x\\u58?a.b-c_1@d.e x\\u44?a.b-c_1@d.e x\\u43?a.b-c_1@d.e x\\u61?a.b-c_1@d.e "
       "x\\u37?a.b-c_1@d.e x\\u126?a.b-c_1@d.e x\\u36?a.b-c_1@d.e x;a.b-c_1@d.e x!a.b-c_1@d.e :@d :a@ :a@;  "
       ":a \\u58?aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa@b "
       "\\u58?aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa@b \\u58?a@b\\lang1033 "},
      {"mail addresses in targets",
       Document("<mailto:a@b.c> <mailto:a@b> x<mailto:a@b:c@d http://e:f@g www.h:i@j"),
       "\\pard\\f0\\fs24 <mailto:a@b.c> <mailto:a@b> x<mailto:a@b\\u58?c@d http://e:f@g www.h:i@j"},
      {"names of characters",
       Document("\\endash\\emdash\\lquote\\rquote\\ldblquote\\rdblquote\\bullet "
                "a\\\\\\endash\\\\\\emdash\\\\\\lquote\\\\\\ldblquote\\\\\\rdblquote\\\\\\bullet"),
       "\\pard\\f0\\fs24 \\endash \\emdash \\lquote \\rquote \\ldblquote \\rdblquote \\bullet "
       "a\\u92?\\endash \\u92?\\emdash \\u92?\\lquote \\u92?\\ldblquote \\u92?\\rdblquote "
       "\\u92?\\bullet\\lang1033 "},
      {"characters without a byte",
       Document("\\'81\\u129?\\u141?\\u143?\\u144?\\u157?\\u128?\\u130?\\u159?\\u160?\\u8364?\\u382?\\u255?"
                "\\u256?\\u127?"),
       "\\pard\\f0\\fs24 "
       "\\'81\\'81\\'8d\\'8f\\'90\\'9d\\u128?\\u130?\\u159?\\~\\'80\\'9e\\'ff\\u256?\\u127?\\lang1033 "},
      {"backslashes",
       Document("\\\\a\\\\\\tab\\\\\\line\\\\\\par\\\\\\'e9\\\\~\\\\\\'20\\\\\\{\\\\?\\\\&b\\\\\\~"),
       "\\pard\\f0\\fs24 \\\\a\\u92?\\tab \\u92?\\line \\\\\r\n\\par \\u92?\\'e9\\\\~\\\\ "
       "\\\\\\u123?\\\\\\u63?\\\\\\u38?b\\u92?\\~\\lang1033 "},
      {"backslashes in a row", Document(two + "\\intbl\\\\\\cell\\{\\cell\\row\\pard\\\\"),
       two + "\\pard\\intbl\\f0\\fs24 \\u92?\\cell \\u123?\\lang1033 \\cell\\row\r\n\\pard \\\\"},
      {"braces", Document("\\{a\\{ b\\{\\}\\{\\\\\\{&c\\{?\\{\\'e9\\{\\tab\\{\\par\\{~\\{\\b c"),
       "\\pard\\f0\\fs24 \\{a\\u123? "
       "b\\u123?\\}\\u123?\\\\\\u123?\\u38?c\\u123?\\u63?\\u123?\\'e9\\u123?\\tab \\u123?\r\n\\par "
       "\\{~\\u123?\\b c\\lang1033 "},
      {"spaces without a break", Document("\\~a\\\\\\~\\}\\~\\b\\~\\b0\\~ \\}\\b\\~"),
       "\\pard\\f0\\fs24 \\~a\\u92?\\~\\}\\u160?\\b \\~\\b0 \\~ \\}\\b \\~\\lang1033 "},
      {"ampersands",
       Document("&#1;&a&1& &\\b c&\\b0 http://a?b&c &d xhttp://e&f WwW.g&h www.i &j ://k&l ww.m&n"),
       "\\pard\\f0\\fs24 \\u38?#1;\\u38?a&1& &\\b c&\\b0 http://a?b&c \\u38?d xhttp://e&f WwW.g&h www.i "
       "\\u38?j ://k&l ww.m\\u38?n\\lang1033 "},
      {"question marks after Unicode",
       Document(
           "\\u945??\\u945? ?\\u945?a?\\u945? a?\\u945?\\b?\\b0\\u945?\\emdash?\\u945?\\emdash  ?\\u945?  ?"),
       "\\pard\\f0\\fs24 \\u945?\\u63?\\u945? ?\\u945?a\\u63?\\u945? a?\\u945?\\b ?\\b0 \\u945?\\emdash "
       "\\u63?\\u945?\\emdash  \\u63?\\u945?  \\u63?\\lang1033 "},
      {"ends after Unicode",
       Document("\\u945?\\par\\u945? \\par\\u945?a \\par\\pard\\qc\\u945?a  "
                "\\par\\pard\\u945?\\tab\\par\\pard\\qc\\u945?\\line\\par\\pard\\u945?"
                "\\bullet\\par\\pard\\qc\\u945?\\b\\par\\pard\\b0\\u945?\\\\"),
       "\\pard\\f0\\fs24 \\u945?\r\n\\par \\u945? \r\n\\par \\u945?a \r\n\\par \\pard\\qc \\u945?a  "
       "\r\n\\par \\pard \\u945?\\tab \r\n\\par \\pard\\qc \\u945?\\line \r\n\\par \\pard \\u945?\\bullet "
       "\r\n\\par \\pard\\qc \\u945?\r\n\\par \\pard \\u945?\\\\\\lang1033 "},
      {"an end after Unicode, 1", Document("\\u945?\\tab"), "\\pard\\f0\\fs24 \\u945?\\tab\\lang1033 "},
      {"an end after Unicode, 2", Document("\\u945?a\\line"), "\\pard\\f0\\fs24 \\u945?a\\line\\lang1033 "},
      {"an end after Unicode, 3", Document("\\u945?\\bullet"), "\\pard\\f0\\fs24 \\u945?\\bullet\\lang1033 "},
      {"an end after Unicode, 4", Document("\\u945?\\strike\\b\\'e9\\strike0\\b0"),
       "\\pard\\f0\\fs24 \\u945?\\b\\strike \\'e9\\lang1033 "},
      {"an end after Unicode, 5", Document("\\u945?\\highlight1 a\\highlight0 "),
       "\\pard\\f0\\fs24 \\u945?\\highlight1 a\\lang1033 "},
      {"an end after Unicode, 6", Document("\\u945? a"), "\\pard\\f0\\fs24 \\u945? a"},
      {"an end after Unicode, 7", Document("\\u945?a b"), "\\pard\\f0\\fs24 \\u945?a b"},
      {"an end after Unicode, 8", Document("\\u945?  a"), "\\pard\\f0\\fs24 \\u945?  a\\lang1033 "},
      {"an end after Unicode, 9", Document("\\u945?\\'e9 x"), "\\pard\\f0\\fs24 \\u945?\\'e9 x"},
      {"an end after Unicode, 10", Document("\\u945?\\'e9"), "\\pard\\f0\\fs24 \\u945?\\'e9\\lang1033 "},
      {"an end after Unicode, 11", Document("\\u945?\\emdash"),
       "\\pard\\f0\\fs24 \\u945?\\emdash \\lang1033 "},
      {"an end after Unicode, 12", Document("\\u945?{\\f2 a }"),
       "\\pard\\f0\\fs24 \\u945?\\f1 a \\lang1033 "},
      {"an end after Unicode, 13", Document("\\u945?{\\f2  }"), "\\pard\\f0\\fs24 \\u945?\\f1  \\lang1033 "},
      {"an end after Unicode, 14", Document("\\u945?\\} "), "\\pard\\f0\\fs24 \\u945?\\}\\u160?\\lang1033 "},
      {"an end after Unicode, 15", Document("\\u945?\\lang1036\\b x\\b0\\lang1034\\i "),
       "\\pard\\f0\\fs24 \\u945?\\lang1036\\b x\\lang1036 "},
      {"ends after Unicode in cells",
       Document(
           two +
           "\\intbl\\u945?\\cell\\u946?\\cell\\row\\intbl\\u945?\\cell\\u946? \\cell\\row\\pard\\u947?\\par" +
           two + "\\intbl\\u945? a\\cell\\u946?\\b x\\cell\\row\\intbl\\cell\\cell\\row\\pard a"),
       two +
           "\\pard\\intbl\\f0\\fs24 \\u945?\\cell \\u946?\\cell\\row\r\n\\intbl \\u945?\\cell "
           "\\u946?\\~\\lang1033 \\cell\\row\r\n\\pard \\u947?\r\n\\par " +
           two +
           "\\pard\\intbl \\u945? a\\cell \\u946?\\b x\\cell\\row\r\n\\intbl\\b0 \\cell\\lang1033 "
           "\\cell\\row\r\n\\pard\\b a"},
      {"Unicode in labels", Document("{\\*\\pn\\pnlvlbody{\\pntxta\\u945?}}a\\par b\\par\\pard c"),
       "\\pard{\\pntext\\f0 1\\u945?\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart1\\pndec{\\pntxta "
       "\\u945?}}\r\n\\f0\\fs24 a\r\n\\par {\\pntext\\f0 2\\u945?\\tab}b\r\n\\par \\pard c"},
      {"indents of typed items",
       Document("\\pard\\fi-5\\li9 -\\tab a\\par\\pard\\qc\\fi-5\\li9  *\\tab b\\par\\pard\\fi-5\\li9 o\\tab "
                "c\\par\\pard\\qc\\fi-5\\li9 1\\tab d\\par\\pard\\fi-5\\li9 x\\tab\\par\\pard\\qc\\fi-5\\li9 "
                "-a\\tab\\par\\pard\\fi-5\\li9 \\tab\\tab e\\par\\pard\\qc\\fi-5\\li9 "
                "-\\par\\pard\\fi-5\\li9   \\par\\pard\\qc\\fi-5\\li9 \\'b7\\tab f\\par"),
       "\\pard\\fi-5\\li9\\f0\\fs24 -\\tab a\r\n\\par \\pard\\fi-5\\li9\\qc  *\\tab b\r\n\\par "
       "\\pard\\fi-5\\li9 o\\tab c\r\n\\par \\pard\\li9\\fi-5\\qc 1\\tab d\r\n\\par \\pard\\li9\\fi-5 x\\tab "
       "\r\n\\par \\pard\\li9\\fi-5\\qc -a\\tab \r\n\\par \\pard\\li9\\fi-5\\tab\\tab e\r\n\\par "
       "\\pard\\li9\\fi-5\\qc -\r\n\\par \\pard\\li9\\fi-5   \r\n\\par \\pard\\fi-5\\li9\\qc \\'b7\\tab f"},
  });
}

TEST(CanonicalForm, EndsFormatsWhereThePageNeedsIt) {
  const std::string bullets = "{\\*\\pn\\pnlvlblt\\pnf2{\\pntxtb\\'B7}}";
  const std::string two = "\\trowd\\cellx100\\cellx200";
  const std::string bullet = "{\\pntext\\f1\\'B7\\tab}";
  const std::string bullet_list = "{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'B7}}";
  CheckBodies({
      {"the line after a nested row goes with its cell",
       Document(
           two +
           "\\intbl a\\itap2 b\\nestcell\\nestrow\\pard\\intbl\\cell c{\\b "
           "d\\nestcell\\nestrow}\\cell\\row\\intbl{\\b\\nestrow}\\cell e\\nestrow f\\cell\\row\\pard g"),
       two + "\\pard\\intbl\\f0\\fs24 ab\\tab\\cell c\\b d\\tab\\cell\\row\r\n\\intbl\\b0 \\cell e\\line "
             "f\\cell\\row\r\n\\pard g"},
      {"formats that end with a paragraph",
       Document("\\b a\\par\\b0 b\\par\\b c\\par\\par\\b0 d\\par{\\ul e\\par}{\\i\\par}f"),
       "\\pard\\b\\f0\\fs24 a\r\n\\par \\b0 b\r\n\\par \\b c\r\n\\par \r\n\\par \\b0 d\r\n\\par \\ul "
       "e\r\n\\par \\ulnone \r\n\\par f"},
      {"sizes in front of another font",
       Document("\\fs24 a\\fs20\\par\\f1 b\\fs30\\par\\f0\\fs20 c\\fs24\\par\\f1\\b d\\par"),
       "\\pard\\f0\\fs24 a\r\n\\par \\f1\\fs20 b\r\n\\par \\f0 c\r\n\\par \\b\\f1\\fs24 d"},
      {"the control's sizes in front of another font",
       "{\\rtf1\\ansi{\\fonttbl{\\f0\\fnil A1;}{\\f1\\fnil B1;}}\\viewkind4\\uc1\\pard\\f0\\fs32 a\\fs24 "
       "\r\n\\par \\f1 b\\fs20 \r\n\\par c\\fs30 \r\n\\par \\f0\\b d\\fs40 \r\n\\par }",
       "\\pard\\f0\\fs32 a\r\n\\par \\f1\\fs24 b\\fs20 \r\n\\par c\\fs30 \r\n\\par \\b\\f0 d\\fs40 "},
      {"effects from cell to cell",
       "{\\rtf1\\ansi{\\fonttbl{\\f0\\fnil A1;}}\\viewkind4\\uc1" + two +
           "\\pard\\intbl\\b\\f0 a\\b0\\cell\\i b\\i0\\cell\\row\r\n\\intbl c\\cell\\ul "
           "d\\cell\\row\r\n\\intbl\\ulnone e\\cell\\strike\\b f\\cell\\row\r\n\\pard\\strike0 "
           "g\\i\\par\\b0\\i0 h\\par }",
       two + "\\pard\\intbl\\b\\f0\\fs24 a\\cell\\b0\\i b\\cell\\row\r\n\\intbl\\i0 c\\cell\\ul "
             "d\\cell\\row\r\n\\intbl\\ulnone e\\cell\\b\\strike f\\b0\\cell\\row\r\n\\pard\\b\\strike0 g\\i "
             "\r\n\\par \\b0\\i0 h"},
      {"effects from a row into paragraphs and items",
       Document(two +
                "\\pard\\intbl\\b\\i a\\cell\\i0 b\\cell\\row\\pard\\i\\par{\\*\\pn\\pnlvlblt\\pnf2}\\b "
                "c\\par\\b0 d\\par\\pard\\ul e\\par" +
                two + "\\intbl f\\cell\\b g\\cell\\row\\pard{\\*\\pn\\pnlvlblt\\pnf2}\\b\\par\\par\\pard h"),
       two + "\\pard\\intbl\\b\\i\\f0\\fs24 a\\cell\\i0 b\\b0\\cell\\row\r\n\\pard\\b \r\n\\par \\pard" +
           bullet + bullet_list + "\\i c\\b0 \r\n\\par " + bullet +
           "d\r\n\\par \\pard\\ul e\\ulnone\\i0 \r\n\\par " + two +
           "\\pard\\intbl\\ul\\i f\\cell\\b g\\ulnone\\b0\\i0\\cell\\row\r\n\\pard" + bullet + bullet_list +
           "\\ul\\b\\i \r\n\\par " + bullet + "\r\n\\par \\pard h"},
      {"effects of an empty paragraph in front of an item without them",
       Document(two + "\\pard\\intbl\\b\\ul a\\cell b\\cell\\row\\pard\\par" + bullets +
                "\\b0 c\\par\\pard\\b d\\par" + two + "\\pard\\intbl e\\cell f\\cell\\row\\pard" + bullets +
                "\\par\\b0\\par g\\par\\pard h"),
       two +
           "\\pard\\intbl\\ul\\b\\f0\\fs24 a\\cell b\\ulnone\\cell\\row\r\n\\pard\\ul\\b0 \r\n\\par \\pard" +
           bullet + bullet_list + "c\r\n\\par \\pard\\b d\\ulnone\\b0 \r\n\\par " + two +
           "\\pard\\intbl\\ul\\b e\\cell f\\ulnone\\cell\\row\r\n\\pard" + bullet + bullet_list +
           "\\ul\\b0 \r\n\\par " + bullet + "\r\n\\par " + bullet + "g\r\n\\par \\pard h"},
      {"and in front of a row",
       Document(two + "\\pard\\intbl\\b a\\cell b\\cell\\row\\pard\\par" + two +
                "\\pard\\intbl c\\cell\\i d\\cell\\row\\pard\\b0\\par e"),
       two + "\\pard\\intbl\\b\\f0\\fs24 a\\cell b\\cell\\row\r\n\\pard\\b0 \r\n\\par " + two +
           "\\pard\\intbl\\b c\\cell\\i d\\i0\\cell\\row\r\n\\pard\\b0\\i \r\n\\par e"},
      {"effects of empty paragraphs in front of items",
       Document(two + "\\pard\\intbl\\b\\i\\ul a\\cell "
                      "b\\cell\\row\\pard\\b\\par\\i0\\par{\\*\\pn\\pnlvlblt\\pnf2}\\ulnone c\\par\\pard d"),
       two +
           "\\pard\\intbl\\ul\\b\\i\\f0\\fs24 a\\cell b\\ulnone\\b0\\i0\\cell\\row\r\n\\pard\\ul\\b\\i "
           "\r\n\\par \\ulnone\\i0 \r\n\\par \\pard" +
           bullet + bullet_list + "c\r\n\\par \\pard d"},
  });
}

}  // namespace
}  // namespace quillary::platform

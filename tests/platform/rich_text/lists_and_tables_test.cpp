// Lists and tables in every dialect of RTF.
#include <gtest/gtest.h>

#include <string>

#include "platform/rich_text/rich_text_cases.h"

namespace quillary::platform {
namespace {

TEST(ListsAndTables, ReadsListsOfEveryDialect) {
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
  for (int i = 0; i < 10; ++i) {
    levels += "{\\listlevel\\levelnfc0\\levelstartat" + std::to_string(i) + "1{\\leveltext\\'02\\'0" +
              std::to_string(i) + ".;}}";
  }
  EXPECT_EQ(Plain(Document("{\\*\\listtable{\\list" + levels +
                           "\\listid7}}{\\*\\listoverridetable{\\listoverride\\listid7\\ls1}}"
                           "\\ls1\\ilvl8 a\\par\\ilvl9 b")),
            "81.\ta\r\n82.\tb");
}

TEST(ListsAndTables, ReadsTables) {
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

TEST(ListsAndTables, ReadsRowDefinitions) {
  // A word of a definition that follows a row begins a new one.
  const std::string row = "\\intbl a\\cell\\row";
  for (const std::string word : {"\\trgaph5", "\\trleft5", "\\trqc", "\\trqr", "",
                                 "\\trbrdrt\\brdrs\\brdrw9 ", "\\clbrdrb\\brdrw9\\brdrs "}) {
    EXPECT_EQ(Body(Document("\\trowd\\trgaph3\\cellx5" + row + word + "\\cellx9" + row + "\\pard")),
              "\\trowd\\trgaph3\\cellx5\\pard\\intbl\\f0\\fs24 a\\cell\\row\r\n\\trowd" + word +
                  "\\cellx9\\pard\\intbl a\\cell\\row\r\n\\pard ");
  }
  const std::string end = "\\intbl a\\cell\\row\\pard";
  CheckBodies({
      {"all sides of rows and cells",
       Document("\\trowd\\trqc\\trbrdrt\\brdrs\\brdrw10\\trbrdrl\\brdrdb\\trbrdrb\\brdrdot\\brdrw300\\trbrdrr"
                "\\brdrs\\brdrw0\\clbrdrr\\brdrs\\clbrdrb\\brdrs\\brdrw7\\clbrdrl\\brdrs\\brdrw8\\clbrdrt\\br"
                "drs\\cellx100" +
                end),
       "\\trowd\\trqc\\trbrdrt\\brdrs\\brdrw10 \\trbrdrl\\brdrs\\brdrw15 \\trbrdrb\\brdrs\\brdrw255 "
       "\\trbrdrr\\brdrs\\brdrw1 "
       "\\clbrdrt\\brdrw15\\brdrs\\clbrdrl\\brdrw8\\brdrs\\clbrdrb\\brdrw7\\brdrs\\clbrdrr\\brdrw15\\brdrs "
       "\\cellx100\\pard\\intbl\\f0\\fs24 a\\cell\\row\r\n\\pard "},
      {"borders that are taken back or of no kind that is known",
       Document("\\trowd\\trqr\\trbrdrt\\brdrs\\brdrnone\\trbrdrl\\brdrs\\trbrdrh\\brdrw30\\brdrnone\\clbrdrl"
                "\\brdrs\\cellx100\\brdrw40\\brdrs\\cellx200" +
                end),
       "\\trowd\\trqr\\trbrdrl\\brdrs\\brdrw15 \\clbrdrl\\brdrw15\\brdrs "
       "\\cellx100\\cellx200\\pard\\intbl\\f0\\fs24 a\\cell\\row\r\n\\pard "},
      {"a definition that starts again",
       Document("\\trowd\\trgaph5\\trleft9\\trqc\\trbrdrt\\brdrs\\cellx7\\trowd\\cellx100" + end),
       "\\trowd\\cellx100\\pard\\intbl\\f0\\fs24 a\\cell\\row\r\n\\pard "},
      {"edges and gaps out of range",
       Document("\\trowd\\trgaph40000\\trleft-40000\\cellx-100000\\cellx100000" + end),
       "\\trowd\\trgaph31680\\trleft-31680\\cellx-99999\\cellx99999\\pard\\intbl\\f0\\fs24 "
       "a\\cell\\row\r\n\\pard "},
      {"style words without a border",
       Document("\\brdrs\\brdrw5\\brdrnone\\trowd\\brdrs\\brdrw5\\brdrnone\\cellx5" + end),
       "\\trowd\\cellx5\\pard\\intbl\\f0\\fs24 a\\cell\\row\r\n\\pard "},
      {"words of another kind after a row",
       Document("\\trowd\\trgaph3\\cellx5\\intbl a\\cell\\row\\brdrs\\trbrdrh\\intbl b\\cell\\row\\pard"),
       "\\trowd\\trgaph3\\cellx5\\pard\\intbl\\f0\\fs24 a\\cell\\row\r\n\\intbl b\\cell\\row\r\n\\pard "},
  });
}

TEST(ListsAndTables, CountsInNumbersAndLetters) {
  struct {
    int kind, start;
    const char* text;
  } const cases[] = {
      {0, 3, "3\011a\r\n4\011b"},
      {1, 1, "I\011a\r\nII\011b"},
      {1, 4, "IV\011a\r\nV\011b"},
      {1, 9, "IX\011a\r\nX\011b"},
      {1, 14, "XIV\011a\r\nXV\011b"},
      {1, 40, "XL\011a\r\nXLI\011b"},
      {1, 90, "XC\011a\r\nXCI\011b"},
      {1, 400, "CD\011a\r\nCDI\011b"},
      {1, 776, "DCCLXXVI\011a\r\nDCCLXXVII\011b"},
      {2, 0, "i\011a\r\ni\011b"},
      {2, 3, "iii\011a\r\niv\011b"},
      {2, 32768, "32767\011a\r\n32768\011b"},
      {3, 1, "A\011a\r\nB\011b"},
      {3, 26, "Z\011a\r\nAA\011b"},
      {3, 52, "ZZ\011a\r\nAAA\011b"},
      {3, 780, "ZZZZZZZZZZZZZZZZZZZZZZZZZZZZZZ\011a\r\n781\011b"},
      {4, 2, "b\011a\r\nc\011b"},
      {4, 781, "781\011a\r\n782\011b"},
      {4, 0, "a\011a\r\na\011b"},
      {9, 1, "1\011a\r\n2\011b"},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(Plain(Document("{\\*\\listtable{\\list{\\listlevel\\levelnfc" + std::to_string(each.kind) +
                             "\\levelstartat" + std::to_string(each.start) +
                             "{\\leveltext\\'01\\'00;}}\\listid7}}{\\*\\listoverridetable"
                             "{\\listoverride\\listid7\\ls1}}\\ls1 a\\par b")),
              each.text);
  }
}

TEST(ListsAndTables, ReadsLabelsAndLevels) {
  const std::string overrides =
      "{\\*\\listoverridetable{\\listoverride\\listid7\\ls1}{\\listoverride\\ls2}{"
      "\\listoverride\\listid9\\ls3}}";
  const std::string bullets = "{\\*\\pn\\pnlvlblt\\pnf2{\\pntxtb\\'B7}}";
  const std::string bullet = "{\\pntext\\f1\\'B7\\tab}";
  const std::string bullet_list = "{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'B7}}";
  CheckBodies({
      {"labels of lists that are not defined",
       Document("{\\listtext\\'b7\\tab}\\ls1 a\\par{\\listtext 2)\\tab}b\\par c\\par{\\listtext}\\ls1 d"),
       "\\pard" + bullet + bullet_list +
           "\\f0\\fs24 a\r\n\\par \\pard{\\pntext\\f0 "
           "2)\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart1\\pndec{\\pntxta)}}\r\nb\r\n\\par \\pard "
           "c\r\n\\par \\pard" +
           bullet + bullet_list + "d"},
      {"labels of the control's own lists",
       Document("{\\*\\pn\\pnlvlbody\\pnstart3\\pnucrm{\\pntxtb (}{\\pntxta )}}a\\par b\\par{\\pntext "
                "X.\\tab}c\\par\\pard{\\*\\pn\\pnlvlbody\\pnlcltr{\\pntxta.}}d\\par "
                "e\\par\\pard{\\*\\pn\\pnlvlbody\\pnucltr}f\\par\\pard{\\*\\pn\\pnlvlbody\\pnlcrm\\pnstart-4}"
                "g\\par\\pard{\\*\\pn\\pnlvl5\\pndec\\pnstart40000}h\\par\\pard{\\*\\pn\\pnlvlblt\\pncard}"
                "i\\par\\pard{\\*\\pn\\pnlvlcont\\pnlvlblt}j"),
       "\\pard{\\pntext\\f0 "
       "(III)\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart3\\pnucrm{\\pntxtb(}{\\pntxta)}}"
       "\r\n\\f0\\fs24 a\r\n\\par {\\pntext\\f0 (IV)\\tab}b\r\n\\par {\\pntext\\f0 X.\\tab}c\r\n\\par "
       "\\pard{\\pntext\\f0 "
       "a.\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart1\\pnlcltr{\\pntxta.}}\r\nd\r\n\\par "
       "{\\pntext\\f0 b.\\tab}e\r\n\\par \\pard{\\pntext\\f0 "
       "A\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart1\\pnucltr}\r\nf\r\n\\par \\pard{\\pntext\\f0 "
       "0\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart0\\pnlcrm}\r\ng\r\n\\par \\pard{\\pntext\\f0 "
       "32767\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart32767\\pndec}\r\nh\r\n\\par "
       "\\pard{\\pntext\\f0 1\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart1\\pndec}\r\ni\r\n\\par "
       "\\pard j"},
      {"tildes and spaces in labels", Document("{\\pntext ~1 ~\\tab}a\\par{\\pntext [\\'7f2] \\'80\\tab}b"),
       "\\pard{\\pntext\\f0 ~1 ~\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart1\\pndec{\\pntxtb "
       "~}{\\pntxta ~}}\r\n\\f0\\fs24 a\r\n\\par \\pard{\\pntext\\f0 [\\u127?2] "
       "\\u8364?\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart1\\pndec{\\pntxtb [\\u127?}{\\pntxta ] "
       "\\u8364?}}\r\nb\\lang1033 "},
      {"affixes are cut and trimmed", Document("{\\*\\pn\\pnlvlbody{\\pntxtb  ((((((((((}{\\pntxta  ) }}a"),
       "\\pard{\\pntext\\f0 "
       "((((((((1)\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart1\\pndec{\\pntxtb((((((((}{\\pntxta)}}"
       "\r\n\\f0\\fs24 a"},
      {"fonts and indents of bullets",
       Document("{\\*\\pn\\pnlvlblt\\pnf1\\pnindent40000{\\pntxtb *}{\\pntxta "
                "x}}a\\par\\pard{\\*\\pn\\pnlvlblt\\pnf3\\pnstart4}b\\par\\pard{\\*"
                "\\pn\\pnlvlbody\\pnf2\\pndec\\pnindent5{\\pntxtb\\'b7}{\\pntxta -a}}c"),
       "\\pard{\\pntext\\f2\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf2\\pnindent31680{\\pntxtb\\'B7}}\\f0\\fs24 "
       "a\r\n\\par \\pard" +
           bullet + bullet_list +
           "b\r\n\\par \\pard{\\pntext\\f0 "
           "\\u183?1-a\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent5\\pnstart1\\pndec{\\pntxtb \\u183?}{\\pntxta "
           "-a}}\r\nc\\lang1033 "},
      {"the label of a paragraph that is reset",
       Document(
           bullets +
           "a\\par{\\pntext\\f2\\'b7\\tab}\\pard b\\par{\\pntext\\f2\\'b7\\tab}\\pard c\\par\\pard{\\pntext "
           "1.\\tab}\\pard\\par{\\pntext 2.\\tab}d\\par\\pard e\\par{\\pntext\\f2\\'b7\\tab}\\pard"),
       "\\pard" + bullet + bullet_list + "\\f0\\fs24 a\r\n\\par " + bullet + "b\r\n\\par " + bullet +
           "c\r\n\\par " + bullet +
           "\\pard \r\n\\par \\pard{\\pntext\\f0 "
           "2.\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart1\\pndec{\\pntxta.}}\r\nd\r\n\\par \\pard "
           "e"},
      {"spaces around labels", Document("{\\pntext{\\f2 \\'b7}{\\tab}\\tab  }a\\par{\\pntext 1{.}\\line  }b"),
       "\\pard" + bullet + bullet_list +
           "\\f0\\fs24 a\r\n\\par \\pard{\\pntext\\f0 "
           "1.\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart1\\pndec{\\pntxta.}}\r\nb"},
      {"a list that goes on after other text",
       Document(bullets + "a\\par\\pard b\\par" + bullets +
                "c\\par\\pard{\\*\\pn\\pnlvlbody\\pnstart1\\pndec{\\pntxta.}}d\\par\\pard "
                "e\\par{\\*\\pn\\pnlvlbody\\pnstart1\\pndec{\\pntxta.}}f\\par g"),
       "\\pard" + bullet + bullet_list + "\\f0\\fs24 a\r\n\\par \\pard b\r\n\\par \\pard" + bullet +
           bullet_list +
           "c\r\n\\par \\pard{\\pntext\\f0 "
           "1.\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart1\\pndec{\\pntxta.}}\r\nd\r\n\\par \\pard "
           "e\r\n\\par \\pard{\\pntext\\f0 "
           "1.\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart1\\pndec{\\pntxta.}}\r\nf\r\n\\par "
           "{\\pntext\\f0 2.\\tab}g"},
      {"levels count for themselves",
       Document("{\\*\\listtable{\\list{\\listlevel\\levelnfc0{\\leveltext\\'02\\'00.;}}{"
                "\\listlevel\\levelnfc4{\\leveltext\\'04\\'00.\\'01);}}{\\listlevel\\levelnfc255{"
                "\\leveltext\\'01\\'02;}}{\\listlevel\\levelnfc23{\\leveltext\\'01\\'b7;}}{"
                "\\listlevel\\levelnfc0{\\leveltext\\'00;}}\\listid7}}" +
                overrides +
                "\\ls1 a\\par\\ilvl1 b\\par c\\par\\ilvl0 d\\par\\ilvl1 e\\par\\ilvl2 f\\par\\ilvl3 "
                "g\\par\\ilvl4 h\\par\\ilvl-1 i\\par\\ls2 j\\par\\ls3 k\\par\\ls0 l\\par\\ls9 m"),
       "\\pard{\\pntext\\f0 "
       "1.\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart1\\pndec{\\pntxta.}}\r\n\\f0\\fs24 a\r\n\\par "
       "\\pard{\\pntext\\f0 "
       "1.a)\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart1\\pnlcltr{\\pntxta)}}\r\nb\r\n\\par "
       "{\\pntext\\f0 1.b)\\tab}c\r\n\\par \\pard{\\pntext\\f0 "
       "2.\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart2\\pndec{\\pntxta.}}\r\nd\r\n\\par "
       "\\pard{\\pntext\\f0 "
       "2.a)\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart1\\pnlcltr{\\pntxta)}}\r\ne\r\n\\par \\pard "
       "f\r\n\\par \\pard" +
           bullet + bullet_list +
           "g\r\n\\par \\pard h\r\n\\par \\pard{\\pntext\\f0 "
           "3.\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart3\\pndec{\\pntxta.}}\r\ni\r\n\\par \\pard "
           "j\r\n\\par k\r\n\\par l\r\n\\par m"},
      {"labels of numbers and letters",
       Document(
           "{\\*\\listtable{\\list{\\listlevel\\levelnfc0{\\leveltext\\'02\\'00.;}}\\listid7}}" + overrides +
           "{\\listtext\\tab}\\ls1 a\\par{\\listtext  (5) \\tab}b\\par{\\listtext\\'e9}c\\par{\\listtext "
           "[[[[[[[[[1]]]]]]]]]}d\\par{\\listtext -\\u12354?-}e\\par{\\listtext \\u8226?}f"),
       "\\pard\\f0\\fs24 a\r\n\\par \\pard{\\pntext\\f0 "
       "(5)\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart2\\pndec{\\pntxtb(}{\\pntxta)}}\r\nb\r\n\\par "
       "\\pard{\\pntext\\f0 "
       "\\u233?\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart3\\pndec}\r\nc\r\n\\par "
       "\\pard{\\pntext\\f0 "
       "[[[[[[[[[1]]]]]]]]]\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart4\\pndec{\\pntxtb "
       "[[[[[[[[}{\\pntxta ]]]]]]]]}}\r\nd\r\n\\par \\pard{\\pntext\\f0 "
       "-\\u12354?-\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart5\\pndec{\\pntxtb -}{\\pntxta "
       "-}}\r\ne\r\n\\par \\pard{\\pntext\\f0 "
       "\\u8226?\\tab}{\\*\\pn\\pnlvlbody\\pnf0\\pnindent0\\pnstart6\\pndec}\r\nf\\lang1033 "},
      {"items in cells",
       Document("{\\*\\listtable{\\list{\\listlevel\\levelnfc0{\\leveltext\\'02\\'00.;}}{"
                "\\listlevel\\levelnfc23{\\leveltext\\'01\\'b7;}}\\listid7}}" +
                overrides +
                "\\trowd\\cellx100\\cellx200\\intbl\\ls1 a\\tab\\cell{\\listtext 7.\\tab}b\\par "
                "c\\cell\\row\\intbl\\ilvl1 d\\cell\\line\\cell\\row\\intbl\\ls0 e\\cell{\\listtext 8.}\\ls2 "
                "f\\cell\\row\\pard g"),
       "\\trowd\\cellx100\\cellx200\\pard\\intbl\\f0\\fs24 1. a\\tab\\cell 7. b\\line 3. "
       "c\\cell\\row\r\n\\intbl \\bullet  d\\cell\\line\\cell\\row\r\n\\intbl e\\cell 8. "
       "f\\cell\\row\r\n\\pard g"},
  });
}

TEST(ListsAndTables, EndsRowsThatDoNot) {
  const std::string two = "\\trowd\\cellx100\\cellx200";
  const std::string bullets = "{\\*\\pn\\pnlvlblt\\pnf2{\\pntxtb\\'B7}}";
  const std::string bullet = "{\\pntext\\f1\\'B7\\tab}";
  const std::string bullet_list = "{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'B7}}";
  CheckBodies({
      {"rows without cells or text",
       Document(two + "\\row a\\par" + two + "\\intbl\\row b\\par\\pard\\row c\\row"),
       "\\pard\\f0\\fs24 a\r\n\\par " + two +
           "\\pard\\intbl b\\line\\cell\\row\r\n\\intbl c\\cell\\row\r\n\\pard "},
      {"text after the last cell of a row",
       Document(two + "\\intbl a\\cell b\\cell c\\row d\\cell e\\row\\pard f"),
       two + "\\pard\\intbl\\f0\\fs24 a\\cell b\\cell c\\cell\\row\r\n\\intbl d\\cell e\\cell\\row\r\n\\pard "
             "f"},
      {"a row that is not ended, in front of text",
       Document(two + "\\intbl\\b a\\cell\\i b\\par\\pard\\i0 c\\par d"),
       two + "\\pard\\intbl\\b\\f0\\fs24 a\\cell\\i b\\line\\b0\\cell\\row\r\n\\pard\\b\\i0 c\r\n\\par d"},
      {"a row that is not ended, at the end", Document(two + "\\intbl a\\cell b"),
       two + "\\pard\\intbl\\f0\\fs24 a\\cell b\\cell\\row\r\n\\pard "},
      {"rows that are not ended, after a cell", Document(two + "\\intbl a\\cell b\\cell"),
       two + "\\pard\\intbl\\f0\\fs24 a\\cell b\\cell\\row\r\n\\pard "},
      {"in front of text", Document(two + "\\intbl a\\cell\\pard b"),
       two + "\\pard\\intbl\\f0\\fs24 a\\cell\\row\r\n\\pard b"},
      {"in front of an item in bold type", Document(two + "\\intbl a\\cell\\b b\\i c\\par\\pard d"),
       two + "\\pard\\intbl\\f0\\fs24 a\\cell\\b b\\i c\\line\\b0\\i0\\cell\\row\r\n\\pard\\b\\i d"},
      {"without a table", Document(two + "a\\cell b\\cell\\pard c\\par d"),
       two + "\\pard\\intbl\\f0\\fs24 a\\cell b\\cell c\\line\\cell\\row\r\n\\pard d"},
      {"without a definition", Document("a\\cell b\\par c\\cell\\row"),
       "\\trowd\\pard\\intbl\\f0\\fs24 a\\cell b\\line c\\cell\\row\r\n\\pard "},
      {"without a cell", Document(two + "\\intbl a\\par b\\par"), "\\pard\\f0\\fs24 a\r\n\\par b"},
      {"formats in the text after a row that is not ended",
       Document(two + "\\intbl\\ul a\\cell\\pard b\\b c\\i d\\par e"),
       two + "\\pard\\intbl\\ul\\f0\\fs24 a\\ulnone\\cell\\row\r\n\\pard\\ul b\\b c\\i d\r\n\\par e"},
      {"and at the end", Document(two + "\\intbl a\\cell{\\i b}\\par c\\cell\\pard d\\b e\\b0 f"),
       two + "\\pard\\intbl\\f0\\fs24 a\\cell\\i b\\i0\\line c\\cell\\row\r\n\\pard d\\b e\\b0 f"},
      {"after a row whose last cell has text",
       Document(two + "\\intbl a\\cell\\b b\\i c\\par\\pard d\\i0 e\\b0 f\\par g"),
       two + "\\pard\\intbl\\f0\\fs24 a\\cell\\b b\\i c\\line\\b0\\i0\\cell\\row\r\n\\pard\\b\\i d\\i0 e\\b0 "
             "f\r\n\\par g"},
      {"a definition in front of text that is no cell",
       Document(two + "\\intbl a\\cell b\\cell\\row" + two +
                "\\pard c\\par d\\par\\intbl e\\cell\\row\\pard f"),
       two + "\\pard\\intbl\\f0\\fs24 a\\cell b\\cell\\row\r\n\\pard c\r\n\\par d\r\n\\par " + two +
           "\\pard\\intbl e\\cell\\row\r\n\\pard f"},
      {"a definition after text",
       Document("a" + two + "\\intbl b\\cell c\\cell\\row\\pard d{\\i" + two + "}e\\par f"),
       "\\pard\\f0\\fs24 a\r\n\\par " + two +
           "\\pard\\intbl b\\cell c\\cell\\row\r\n\\pard d\r\n\\par e\r\n\\par f"},
      {"text of a cell in front of its definition",
       Document("\\pard\\intbl a" + two + "\\cell b\\cell\\row\\pard c"),
       two + "\\pard\\intbl\\f0\\fs24 a\\cell b\\cell\\row\r\n\\pard c"},
      {"the first paragraph gives the row its format",
       Document(two + "\\intbl\\qc a\\par\\qr b\\cell\\qj c\\cell\\row\\ql d\\cell e\\cell\\row\\pard f"),
       two + "\\pard\\intbl\\qc\\f0\\fs24 a\\line b\\cell c\\cell\\row\r\n" + two +
           "\\pard\\intbl d\\cell e\\cell\\row\r\n\\pard f"},
      {"page breaks in a row",
       Document("a\\page b" + two +
                "\\intbl c\\page d\\sect e\\column\\cell f\\cell\\row\\pard g\\sect h\\column i"),
       "\\pard\\f0\\fs24 a\r\n\\par b\r\n\\par " + two +
           "\\pard\\intbl cde\\cell f\\cell\\row\r\n\\pard g\r\n\\par h\r\n\\par i"},
      {"nested tables",
       Document(two + "\\intbl a\\par\\itap2 "
                      "b\\nestcell{\\*\\nesttableprops\\trowd\\cellx5\\nestrow}{\\nonesttables\\par}\\cell "
                      "c\\nestcell\\nestrow d\\cell\\row\\pard e\\nestrow f{\\info\\nestrow}"),
       two + "\\pard\\intbl\\f0\\fs24 a\\line b\\tab\\cell c\\tab\\line d\\cell\\row\r\n\\pard e\\line f"},
      {"a row at the end of the document", Document("a\\par" + two + "\\intbl b\\cell c\\cell\\row"),
       "\\pard\\f0\\fs24 a\r\n\\par " + two + "\\pard\\intbl b\\cell c\\cell\\row\r\n\\pard "},
      {"lists in front of rows and after them",
       Document(bullets + "a\\par" + two + "\\pard\\intbl b\\cell\\cell\\row\\pard" + bullets + "c\\par\\b" +
                bullets + "\\b0 d"),
       "\\pard" + bullet + bullet_list + "\\f0\\fs24 a\r\n\\par " + two +
           "\\pard\\intbl b\\cell\\cell\\row\r\n\\pard" + bullet + bullet_list + "c\r\n\\par " + bullet +
           "d"},
  });
}

}  // namespace
}  // namespace quillary::platform

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

}  // namespace
}  // namespace quillary::platform

// Characters and paragraphs of RTF of many kinds, with their formatting.
#include <gtest/gtest.h>

#include <string>

#include "platform/rich_text/rich_text_cases.h"

namespace quillary::platform {
namespace {

TEST(Formatting, ReadsCharacterFormatting) {
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
      {"a style where the paragraph has no formatting of its own",
       Document("{\\stylesheet{\\s0 Normal;}{\\s2\\qc\\b\\fs40 Title;}}\\pard\\plain\\s2 "
                "a\\par\\pard\\plain\\s2\\ql\\fs20 b"),
       "\\pard\\qc\\b\\f0\\fs40 a\r\n\\par \\pard\\b0\\fs20 b"},
  });
}

TEST(Formatting, ReadsParagraphs) {
  CheckBodies({
      {"widow control on and off", Document("\\nowidctlpar a\\par\\widctlpar b"),
       "\\pard\\nowidctlpar\\f0\\fs24 a\r\n\\par \\pard b"},
      {"words in the control's order",
       Document("\\pard\\tx100\\tqr\\tx200\\qc\\sl360\\slmult1\\sa3\\sb4\\ri5\\li6\\keepn\\keep x"),
       "\\pard\\keep\\keepn\\li6\\ri5\\sb4\\sa3\\sl360\\slmult1\\qc\\tx100\\tqr\\tx200\\f0\\fs24 x"},
      {"only on change", Document("\\pard\\qc a\\par b\\par\\pard c\\par\\pard d"),
       "\\pard\\qc\\f0\\fs24 a\r\n\\par b\r\n\\par \\pard c\r\n\\par d"},
      {"empty paragraphs and runs of spaces", Document("a   b\\par\\par\\par  c\\tab\\tab d"),
       "\\pard\\f0\\fs24 a   b\r\n\\par \r\n\\par \r\n\\par  c\\tab\\tab d"},
      {"breaks are paragraphs", Document("a\\page b\\sect c\\line d\\\r\ne\\column f"),
       "\\pard\\f0\\fs24 a\r\n\\par b\r\n\\par c\\line d\r\n\\par e\r\n\\par f"},
      {"right to left", "{\\rtf1\\fbidis{\\fonttbl{\\f0 A;}}\\pard a\\par\\pard\\rtlpar b}",
       "\\pard\\ltrpar\\f0\\fs24 a\r\n\\par \\pard\\rtlpar b"},
  });
  EXPECT_EQ(Plain(Document("a\\par b\\par")), "a\r\nb");
  EXPECT_EQ(Plain(Document("a\\par\\par")), "a\r\n");
}

TEST(Formatting, DecodesEachFontsOwnCodePage) {
  const std::string fonts =
      "{\\rtf1\\ansi\\ansicpg1252{\\fonttbl{\\f0\\fcharset0 A;}{\\f1\\fcharset204 B;}{\\f2\\fcharset128 "
      "C;}{\\f3\\fcharset161 D;}{\\f4\\fnil E;}}";
  CheckTexts({
      {"Cyrillic is not Latin", fonts + "\\f1 \\'cf\\'f0\\'e8\\f0\\'e9\\f4\\'e9}", "Приéé"},
      {"Greek", fonts + "{\\f3\\'e1\\'e2}\\'e1}", "αβá"},
      {"pairs over several escapes", fonts + "\\f2\\'93\\'fa\\'96{\\'7b}\\'8c\\b\\'ea}", "日本語"},
      {"a pair of an escape and a plain character", fonts + "\\f2\\'83A\\'83\\'5c\\'95\\\\z}", "アソ表z"},
      {"a pair that never ends", fonts + "\\f2\\'93\\par x}", "・\r\nx"},
      {"a charset that is the number of a code page",
       "{\\rtf1\\ansi{\\fonttbl{\\f0\\fcharset1251 A;}}\\f0 \\'cf}", "Ï"},
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

}  // namespace
}  // namespace quillary::platform

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

TEST(Formatting, ReadsCharacterWords) {
  CheckBodies({
      {"size and spacing out of range",
       Document("\\fs0 a\\fs-3 b\\fs5000 c\\fs d\\expndtw41 e\\expndtw40 f\\expndtw-10 g\\expndtw-9 "
                "h\\expnd2 i\\expnd9 j\\expndtw0\\up k\\dn l\\dn40 m\\dn-5 n\\up31 o"),
       "\\pard\\f0\\fs24 ab\\fs3276 c\\fs24 de\\expndtw40 f\\expndtw0 g\\expndtw-9 h\\expndtw10 i\\expndtw0 "
       "j\\up6 k\\dn6 l\\dn31 m\\up5 n\\up31 o"},
      {"fonts and sizes of each script",
       Document("\\loch\\f0\\hich\\f1\\dbch\\f2\\loch a\\dbch b\\af1 c\\loch d\\rtlch e\\af1 f\\afs30 g\\ai "
                "h\\ab\\ai0 i\\ltrch j"),
       "\\pard\\f1\\fs24 ab\\f0 c\\f1 de\\f0 f\\fs30 g\\i h\\b\\i0 i\\b0\\f1\\fs24 j"},
      {"a right-to-left font that is not named, and bold of the other script",
       Document("\\b\\i\\rtlch\\ab0 a\\ltrch b\\rtlch\\afs28 c\\fs40 d"),
       "\\pard\\f0\\fs24 a\\b\\i b\\b0\\i0\\fs28 cd"},
      {"raised and lowered ends",
       Document("\\super a\\super0 b\\sub c\\sub0 d\\sub e\\super f\\nosupersub g"),
       "\\pard\\super\\f0\\fs24 a\\nosupersub b\\sub c\\nosupersub d\\sub e\\super f\\nosupersub g"},
      {"toggles off",
       Document("\\i\\ul\\strike\\caps\\deleted a\\i0\\ul0 b\\strike0\\caps0 c\\deleted0 d\\striked1 "
                "e\\striked0\\v h\\v0 i"),
       "\\pard\\ul\\i\\strike\\f0\\fs24 A\\ulnone\\i0 Bc\\strike0 d\\strike e\\strike0 i"},
      {"background and highlight",
       Document("\\cb1 a\\highlight2 b\\highlight0 c\\cb0 d\\cb9 e\\cf-1 f\\chcbpat3\\cb0 g"),
       "\\pard\\highlight1\\f0\\fs24 a\\highlight2 b\\highlight1 c\\highlight0 defg"},
      {"a white background is none",
       "{\\rtf1{\\fonttbl{\\f0 "
       "A;}}{\\colortbl;\\red255\\green255\\blue255;\\red255\\green255\\blue254;}\\cb1 a\\cb2 b\\highlight1 "
       "c\\highlight0\\chcbpat1 d}",
       "\\pard\\f0\\fs24 a\\highlight2 b\\highlight1 c\\highlight0 d"},
      {"languages",
       "{\\rtf1\\ansi\\deflang1031{\\fonttbl{\\f0 A;}}a\\lang1036\\b b\\lang1031\\b0 c\\lang65536\\i "
       "d\\lang65535 e\\ul f\\lang0\\b g\\lang-1 h\\strike\\lang1033 i\\lang1034 j}",
       "\\pard\\f0\\fs24 a\\lang1036\\b b\\lang1031\\b0 c\\i de\\lang65535\\ul f\\lang1031\\b "
       "gh\\lang1033\\strike ij"},
      {"a document of the control keeps languages as they are",
       "{\\rtf1\\ansi\\deflang1031{\\fonttbl{\\f0 A;}}\\viewkind4\\uc1\\pard a\\lang1036 b\\lang1031 c}",
       "\\pard\\f0\\fs24 a\\lang1036 b\\lang1031 c"},
      {"structure characters of the control keep their formats",
       "{\\rtf1\\ansi{\\fonttbl{\\f0 A;}}\\viewkind4\\uc1\\pard a\\fs40\\line\\fs24 b}",
       "\\pard\\f0\\fs24 a\\fs40\\line\\fs24 b"},
      {"and those of others take that of the text",
       Document("\\b\\highlight1\\up5\\cf1 a\\b0\\highlight0\\up0\\cf2\\f1\\fs30\\line b\\i\\par "
                "c\\i0\\highlight2\\up9 d\\highlight1\\up3\\line e"),
       "\\pard\\cf1\\highlight1\\b\\up5\\f0\\fs24 a\\highlight0\\b0\\up0\\line\\cf2\\f1\\fs30 b\r\n\\par \\i "
       "c\\highlight2\\i0\\up9 d\\line\\highlight1\\up3 e"},
  });
}

TEST(Formatting, ReadsParagraphWords) {
  CheckBodies({
      {"measures out of range", Document("\\pard\\li40000\\fi-40000\\ri31680\\sb-31681\\sa1 x"),
       "\\pard\\li31680\\fi-31680\\ri31680\\sb-31680\\sa1\\f0\\fs24 x"},
      {"line spacing without a measure",
       Document("\\pard\\sl0\\slmult1 a\\par\\pard\\sl240\\slmult1\\sl0 b\\par\\pard\\sl240\\slmult2 "
                "c\\par\\pard\\slmult1\\sl240 d\\par\\pard\\sl-240\\slmult1 e\\par\\slmult0 f"),
       "\\pard\\f0\\fs24 a\r\n\\par b\r\n\\par \\pard\\sl240\\slmult0 c\r\n\\par d\r\n\\par "
       "\\pard\\sl-240\\slmult1 e\r\n\\par \\pard\\sl-240\\slmult0 f"},
      {"alignments",
       Document("\\pard\\qj a\\par\\qr b\\par\\ql c\\par\\qd d\\par\\keep0\\keepn0\\ql e\\par\\keep\\keepn1 "
                "f\\par\\keep0 g"),
       "\\pard\\qj\\f0\\fs24 a\r\n\\par \\pard\\qr b\r\n\\par \\pard c\r\n\\par \\pard\\qj d\r\n\\par \\pard "
       "e\r\n\\par \\pard\\keep\\keepn f\r\n\\par \\pard\\keepn g"},
      {"tab stops of each kind",
       Document("\\pard\\tqc\\tx100\\tqr\\tx200\\tqdec\\tx300\\tx400\\tqc\\tx40000 "
                "a\\par\\pard\\tqc\\tx100\\tqr\\tx200\\tqdec\\tx300\\tx400\\tqc\\tx40000 "
                "b\\par\\pard\\tqc\\tx100\\tqr\\tx200 c"),
       "\\pard\\tqc\\tx100\\tqr\\tx200\\tqdec\\tx300\\tx400\\tqc\\tx31680\\f0\\fs24 a\r\n\\par b\r\n\\par "
       "\\pard\\tqc\\tx100\\tqr\\tx200 c"},
      {"more tab stops than there are",
       Document("\\pard\\tx10\\tx20\\tx30\\tx40\\tx50\\tx60\\tx70\\tx80\\tx90\\tx100\\tx110\\tx120\\tx130\\tx"
                "140\\tx150\\tx160\\tx170\\tx180\\tx190\\tx200\\tx210\\tx220\\tx230\\tx240\\tx250\\tx260\\tx2"
                "70\\tx280\\tx290\\tx300\\tx310\\tx320\\tx330\\tx340x"),
       "\\pard\\tx10\\tx20\\tx30\\tx40\\tx50\\tx60\\tx70\\tx80\\tx90\\tx100\\tx110\\tx120\\tx130\\tx140\\tx15"
       "0\\tx160\\tx170\\tx180\\tx190\\tx200\\tx210\\tx220\\tx230\\tx240\\tx250\\tx260\\tx270\\tx280\\tx290\\"
       "tx300\\tx310\\tx320\\f0\\fs24 x"},
      {"a row's words in the paragraphs",
       Document("\\trowd\\cellx9\\intbl a\\cell\\row\\intbl0 b\\par\\pard\\itap0 c\\par\\itap1 "
                "d\\cell\\row\\pard e"),
       "\\trowd\\cellx9\\pard\\intbl\\f0\\fs24 a\\cell\\row\r\n\\pard b\r\n\\par c\r\n\\par "
       "\\trowd\\cellx9\\pard\\intbl d\\cell\\row\r\n\\pard e"},
      {"reading direction in a document that has none",
       Document("\\pard\\rtlpar a\\par\\ltrpar b\\par\\pard c"),
       "\\pard\\rtlpar\\f0\\fs24 a\r\n\\par \\pard b\r\n\\par c"},
      {"a style has nothing of what stands around the table",
       Document("\\b\\qc\\i{\\stylesheet\\ul{\\s1\\cf1 T;}}\\plain\\pard\\s1 x\\b0\\par\\pard\\plain y"),
       "\\pard\\cf1\\f0\\fs24 x\r\n\\par \\cf0 y"},
      {"styles",
       Document("{\\stylesheet{\\b Normal;}{\\s1\\qc\\i Title;}{\\s2\\li5\\b\\cf1\\rtlpar "
                "Body;}{\\*\\cs3\\ul Emph;}{\\s-4\\strike X;}}\\pard a\\par\\pard\\s1 b\\par\\pard\\s2 c{\\i "
                "d}\\par\\pard\\s3 e\\par\\pard\\s-4 f\\par\\pard\\s2\\qr g\\par\\pard\\s2\\ls5 h"),
       "\\pard\\f0\\fs24 a\r\n\\par \\pard\\qc\\i b\r\n\\par \\pard\\li5\\cf1\\b\\i0 c\\cf0\\b0\\i d\\i0 "
       "\r\n\\par \\pard e\r\n\\par f\r\n\\par \\pard\\qr\\cf1\\b g\r\n\\par \\pard\\li5 h"},
  });
}

TEST(Formatting, DecodesBytesThatComeInPieces) {
  const std::string utf8 = "{\\rtf1\\ansi\\ansicpg65001{\\fonttbl{\\f0\\fcharset1 A;}}";
  const std::string japanese =
      "{\\rtf1\\ansi\\ansicpg932{\\fonttbl{\\f0\\fcharset128 A;}{\\f1\\fcharset0 B;}{\\f2\\fcharset2 "
      "Symbol;}}";
  CheckBodies({
      {"each format takes the bytes in front of it",
       utf8 + "\\'80\\b a\\'e9\\b0 b\\'c3\\b\\'a9 c\\'80\\'80\\'80\\'80\\b0 d\\'c3\\i e\\'bf\\i0 f}",
       "\\pard\\f0\\fs24 \\u65533?\\b a\\b0 \\u65533?b\\b \\'e9 c\\u65533?\\u65533?\\u65533?\\u65533?\\b0 "
       "d\\i \\u65533?e\\u65533?\\i0 f\\lang1033 "},
      {"bytes at the ends of groups with formats",
       japanese + "{\\b\\'93\\'fa}\\'96\\'7b{\\i\\'8c}\\'ea{\\b\\'83\\'41{\\i\\'83\\'42}}x}",
       "\\pard\\b\\fs24 \\u26085?\\b0 \\u26412?\\u35486?\\b \\u12450?\\i \\u12451?\\b0\\i0 x\\lang1033 "},
      {"bytes that never end, in front of what ends a paragraph",
       japanese + "\\'83\\par\\'83\\\n\\'83\\page\\'83\\row a{\\'83}\\'83{b}\\'83{\\*\\x c}\\'83{\\info d}}",
       "\\pard\\fs24 \\u12539?\r\n\\par \\u12539?\r\n\\par \\u12539?\r\n\\par \\trowd\\pard\\intbl "
       "\\u12539?\\lang1033 \\cell\\row\r\n\\pard a\\u12515?b\\lang1033 "},
      {"capitals and symbols",
       Document("\\caps a\\'e9\\u945?\\u955?\\'df{\\f2 a\\'b7\\u97?\\u255?\\u256?}\\caps0 a"),
       "\\pard\\f0\\fs24 A\\'c9\\u913?\\u923?\\'df\\f1 a\\'b7a\\'ff\\u256?\\f0 a\\lang1033 "},
  });
  CheckTexts({
      {"UTF-8 in pieces",
       utf8 + "\\'f0{\\'9f}\\'98{}\\'80\\'c2{\\'a0}\\'df{\\'bf}\\'e0{\\'a4}{\\'85}\\'ef{\\'bf}\\'a1\\'f4{\\'"
              "8f\\'bf}\\'bd}",
       "😀\u00a0߿अ￡\U0010fffd"},
      {"damaged UTF-8",
       utf8 + "a\\'c3b\\'e2\\'82c\\'80d\\'c1{\\'81}e\\'f5{\\'80}\\'f0\\'9f\\'98f\\'80\\'80\\'80\\'80g\\'c3}",
       "a\ufffdb\ufffdc\ufffdd\ufffd\ufffde\ufffd\ufffd\ufffdf\ufffd\ufffd\ufffd\ufffdg\ufffd"},
      {"second bytes that are written as they are",
       japanese + "\\'83@\\'83~\\'83?\\'83\177\\'83A\\'41\\'83\\'5c\\f1\\'83A\\f0\\'b1A\\'83\\'40\\'83{A}"
                  "\\'83\\b A}",
       "ァミ・?ャAAソƒAｱAァアア"},
      {"bytes of several fonts",
       japanese + "\\'83\\f1\\'83\\'e9\\f0\\'83\\f2\\'83\\'1f\\'20\\'b7\\f0\\'83\\u945?A\\'83\\emdash\\'"
                  "83\\tab\\'83\\line\\'83\\~\\'83\\cell}",
       "・ƒéƒ •ャαA・—・\011・\r\n\u00a0ャ\r\n"},
      {"bytes of a label that never end",
       japanese + "{\\pntext 1\\'83}a\\par{\\field{\\*\\fldinst HYPERLINK \"http://\\'83}{\\fldrslt "
                  "b}}{\\*\\pn\\pnlvlbody{\\pntxta\\'83}}c}",
       "1・\011a\r\n1・\011b <http://・>c"},
      {"the first and last symbols",
       Document("{\\f2\\'20\\'21\\'7e\\'7f\\'80\\'9f\\'a0\\'a1\\'fe\\'ff\\u61440?\\u61441?\\u61695?\\u61696?}"
                "{\\f3\\'27\\'28\\'fe\\'ff\\'9e\\'dd}{\\f1\\u61601?}"),
       " !∼\u007f€Ÿ€ϒ⎭ÿ\001ÿ'☎☑ÿ·Ý"},
      {"fallbacks",
       Document("\\uc3\\u945 a\\'e9\\~bc\\u945\\{\\tab d e\\u945 {f}g\\u945 ab\\\r\ncd\\uc0\\u945 "
                "h\\uc-1\\u945 i\\uc300\\u945 j{}k\\uc1\\u945\\emdash "
                "l\\u945\\'e9\\u945\011m\\u945\200n\\u945\\bin2 }}o\\u945\\-p\\u945\\:q"),
       "αbcα eαfgα\r\ndαhαiαkαlααmαnαoαpαq"},
      {"words that leave the fallback to come",
       Document("\\u945\\ansicpg0 ?\\u945\\mac ?\\u945\\pc ?\\u945\\pca ?\\u945\\deff0 ?\\u945\\deflang1033 "
                "?\\u945\\fbidis ?\\u945\\viewkind4 ?\\u945\\uc1 ?\\u945\\htmlrtf0 ?\\u945\\shp ?"),
       "ααααααααααα"},
      {"and words that do not",
       Document("\\u945\\b ?\\u945\\qc ?\\u945\\pard ?\\u945\\cellx5 ?\\u945\\unknown ?\\u945\\chftn "
                "?\\u945\\par ?"),
       "α?α?α?α?α?αα\r\n?"},
      {"numbers of characters",
       Document("\\u-1?\\u-32768?\\u-32769?\\u-65536?\\u-65537?\\u0?\\u31?\\u9?\\u65535?\\u65536?\\u1114112?"
                "\\u-65527?"),
       "\uffff耀翿\011\uffff𐀀\011"},
      {"named characters",
       Document("\\emdash\\endash\\emspace\\enspace\\qmspace\\bullet\\lquote\\rquote\\ldblquote\\rdblquote\\z"
                "wj\\zwnj\\ltrmark\\rtlmark\\tab a"),
       "—–\u2003\u2002\u2005•‘’“”\u200d\u200c\u200e\u200f\011a"},
      {"hidden text", Document("a{\\v b\\tab\\line\\'e9\\u945?\\emdash\\par c}{\\v\\cell d}e"), "a\r\n\r\ne"},
  });
}

}  // namespace
}  // namespace quillary::platform

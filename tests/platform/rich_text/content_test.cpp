// What stands in the text of an RTF document beside characters, and what of it is
// not for readers.
#include <gtest/gtest.h>

#include <string>

#include "platform/rich_text/rich_text_cases.h"

namespace quillary::platform {
namespace {

TEST(Content, KeepsLinksFieldsAndNotes) {
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

TEST(Content, KeepsPicturesAndObjects) {
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

TEST(Content, LetsNothingHiddenLeak) {
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
      {"spaces in front of the table's name", "{\\rtf1 { \\fonttbl {\\f0 Arial;} } { \\b x}}", "  x"},
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

TEST(Content, TakesNoControlCharacterForStructure) {
  CheckBodies({
      {"in the label of a cell",
       Document("\\trowd\\cellx9\\pard\\intbl{\\*\\pn\\pnlvlbody}{\\pntext 1\\'01\\tab}a\\cell\\row\\pard x"),
       "\\trowd\\cellx9\\pard\\intbl\\f0\\fs24 1 a\\cell\\row\r\n\\pard x"},
      {"in a level text that is none", Document("{\\*\\pn\\pnlvlbody{\\pntxtb{\\leveltext\\'01}}}\\intbl a"),
       "\\pard\\f0\\fs24 1 a"},
      {"a path in a link has its backslashes doubled twice",
       Document("{\\field{\\*\\fldinst HYPERLINK \"C:\\\\\\\\dir\\\\\\\\a.txt\"}{\\fldrslt c}}"),
       "\\pard\\f0\\fs24 c <C:\\\\dir\\\\a.txt>"},
      {"in the target of a link",
       Document("{\\field{\\*\\fldinst HYPERLINK \"http://a\\'07b\"}{\\fldrslt c}}"),
       "\\pard\\f0\\fs24 c <http://ab>"},
  });
}

}  // namespace
}  // namespace quillary::platform

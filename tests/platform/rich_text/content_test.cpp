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
      {"a picture in front of an object",
       Document(picture + "{\\object\\objemb{\\*\\objclass X}{\\*\\objdata 0105}{\\result{" + picture +
                "}}}"),
       "\\pard\\f0\\fs24" + canonical +
           "{\\object\\objemb{\\*\\objclass X}{\\*\\objdata \r\n0105\r\n}{\\result " + canonical + "}}"},
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

TEST(Content, ReadsFields) {
  const std::string field = "{\\field{\\*\\fldinst ";
  const std::string result = "}{\\fldrslt ";
  CheckTexts({
      {"targets in quotes and without",
       Document(field + "HYPERLINK http://a.b" + result + "c}}" + field +
                "hyperlink  \\ldblquote http://d.e\\rdblquote  " + result + "f}}" + field +
                "HYPERLINK\\tab \"http://g.h" + result + "i}}" + field + "HYPERLINK \"\"" + result + "j}}" +
                field + "LINK \"http://k\"" + result + "l}}" + field + "HYPERLINK" + result + "m}}" + field +
                result + "n}}"),
       "c <http://a.b>f <http://d.e>i <http://g.h>jlmn"},
      {"switches",
       Document(field + "HYPERLINK \\\\n \"http://a\" \\\\m" + result + "b}}" + field +
                "HYPERLINK \"http://c\" \"http://d\"" + result + "e}}" + field +
                "HYPERLINK \"http://f#g\" \\\\l \"h\"" + result + "i}}" + field +
                "HYPERLINK \\\\t \"_top\" \"http://j\"" + result + "k}}" + field +
                "HYPERLINK \"http://l\" \\\\l" + result + "m}}" + field + "HYPERLINK \\\\\\\\x \"http://n\"" +
                result + "o}}"),
       "b <http://a>e <http://c>i <http://f#g>k <http://j>m <http://l>o <\\x>"},
      {"labels that are their target",
       Document(field + "HYPERLINK \"https://www.a.b/c//\"" + result + " A.B/c }}" + field +
                "HYPERLINK \"file:///d:/e\"" + result + "D:/e}}" + field + "HYPERLINK \"http://mailto:f\"" +
                result + "f}}" + field + "HYPERLINK \"www.g.h\"" + result + "http://www.g.h/}}" + field +
                "HYPERLINK \"mailto:i\"" + result + "www.i}}" + field + "HYPERLINK \"http://j\"" + result +
                "http:/j}}" + field + "HYPERLINK \"/\"" + result + "k}}"),
       " A.B/c D:/ef <http://mailto:f>http://www.g.h/www.ihttp:/j <http://j>k </>"},
      {"symbols",
       Document(field + "SYMBOL 183" + result + "}}" + field + "SYMBOL 31" + result + "}}" + field +
                "SYMBOL 32 \\\\f Symbol" + result + "}}" + field + "SYMBOL 97 \\\\f \"Symbol\"" + result +
                "}}" + field + "symbol 97 \\\\s 12 \\\\f Symbol" + result + "}}" + field + "SYMBOL 8364" +
                result + "}}" + field + "SYMBOL 61537 \\\\f Symbol" + result + "}}" + field + "SYMBOL 65535" +
                result + "}}" + field + "SYMBOL 65536" + result + "}}" + field + "SYMBOL 999999" + result +
                "}}" + field + "SYMBOL x" + result + "}}" + field + "SYMBOL" + result + "}}" + field +
                "SYMBOL 97 \\\\f" + result + "}}" + field + "SYMBOL 61695 \\\\f Wingdings" + result + "}}" +
                field + "SYMBOL 255" + result + "}}" + field + "SYMBOL 256" + result + "}}" + field +
                "OTHER 97" + result + "}}"),
       "· αα€α￿aÿÿĀ"},
      {"a field whose result is not empty is no symbol",
       Document(field + "SYMBOL 97" + result + "b}}" + field + "SYMBOL 97" + result + "{\\v c}}}"), "ba"},
      {"parts of fields outside of them",
       Document("{\\*\\fldinst HYPERLINK \"http://a\"" + result + "b}" + field +
                "HYPERLINK \"http://c\"}}d{\\info" + field + "X" + result +
                "e}}}{\\xe{\\field{\\fldrslt f}}}"),
       "bd"},
      {"a link around a field",
       Document(field + "HYPERLINK \"http://a\"" + result + "b" + field + "PAGE" + result + "7}}c}}"),
       "b7c <http://a>"},
  });
}

TEST(Content, ReadsFootnotesAndTextBoxes) {
  CheckBodies({
      {"the brackets of a raised footnote are not raised",
       Document("a{\\super\\chftn{\\footnote\\pard\\plain\\fs20 b}}{\\sub{\\footnote\\up3 "
                "c}}{\\up5{\\footnote d}}e"),
       "\\pard\\f0\\fs24 a\\super 1\\nosupersub  [\\fs20 b\\fs24 ] [\\sub\\up3 c\\nosupersub\\up0 ] [\\up5 "
       "d\\up0 ]e"},
      {"a table in a footnote", Document("a{\\footnote\\trowd\\cellx9\\intbl b\\cell c\\cell\\row d}e"),
       "\\pard\\f0\\fs24 a [b\\tab c\\tab\\line d]e"},
      {"text boxes",
       Document("a{\\shp{\\*\\shpinst{\\sp{\\sn x}{\\sv y}}{\\shptxt\\b b\\par "
                "c}}}d\\par{\\do{\\dptxbxtext\\qc e\\par}}f"),
       "\\pard\\f0\\fs24 a\r\n\\par \\b b\r\n\\par c\\b0 \r\n\\par d\r\n\\par \\pard\\qc e\r\n\\par \\pard "
       "f"},
      {"a text box in a cell",
       Document("\\trowd\\cellx9\\cellx99\\pard\\intbl a{\\shp{\\*\\shpinst{\\shptxt b\\par c\\trowd\\intbl "
                "d\\cell e\\cell\\row}}}f\\cell{\\shp{\\*\\shpinst{\\shptxt g}}}\\cell\\row\\pard h"),
       "\\trowd\\cellx9\\cellx99\\pard\\intbl\\f0\\fs24 a\\line b\\line cd\\tab e\\tab\\line\\line f\\cell "
       "g\\line\\cell\\row\r\n\\pard h"},
      {"a text box in a footnote",
       Document("a{\\footnote b{\\shp{\\*\\shpinst{\\shptxt c\\par "
                "d}}}e}f{\\footnote{\\shp{\\*\\shpinst{\\shptxt g}}}}"),
       "\\pard\\f0\\fs24 a [b\\line c d\\line e]f [\\line g\\line ]"},
      {"a text box in what is not shown",
       Document("a{\\info{\\shp{\\*\\shpinst{\\shptxt b}}}}{\\fonttbl{\\shptxt;}}c{\\shprslt d}"),
       "\\pard\\f0\\fs24 ac"},
  });
  CheckTexts({
      {"footnotes count",
       Document("a\\chftn{\\footnote\\chftn b}c\\chftn{\\footnote\\chftn d\\par\\page e\\line f\\cell "
                "g}{\\footnote h}\\chftn i{\\info{\\footnote j}{\\title\\chftn}}"),
       "a1 [1b]c2 [2d  e\r\nf\011g] [h]3i"},
  });
}

TEST(Content, ReadsPicturesAndObjects) {
  const std::string picture = "{\\pict\\pngblip\\picw5 89504e}";
  const std::string canonical = "{\\pict\\pngblip\\picw5 \r\n89504e\r\n}";
  CheckBodies({
      {"all kinds of pictures",
       Document("{\\pict\\wmetafile 0a}{\\pict\\wmetafile8 0a}{\\pict\\pmmetafile3 0a}{\\pict\\dibitmap0 "
                "0a}{\\pict\\wbitmap0 0a}{\\pict\\emfblip 0a}{\\pict\\jpegblip 0a}{\\pict\\macpict "
                "0a}{\\pict 0a}"),
       "\\pard\\f0\\fs24{\\pict\\wmetafile8 \r\n0a\r\n}{\\pict\\wmetafile8 \r\n0a\r\n}{\\pict\\pmmetafile3 "
       "\r\n0a\r\n}{\\pict\\dibitmap0 \r\n0a\r\n}{\\pict\\wbitmap0 \r\n0a\r\n}{\\pict\\emfblip "
       "\r\n0a\r\n}{\\pict\\jpegblip \r\n0a\r\n}{\\pict\\macpict \r\n0a\r\n}{\\pict\\wbitmap0 \r\n0a\r\n}"},
      {"all measures",
       Document("{\\pict\\wbitmap0\\wbmbitspixel4\\wbmplanes1\\wbmwidthbytes8\\picw1\\pich2\\picwgoal3\\pichg"
                "oal4\\picscalex50\\picscaley60\\piccropl7\\piccropr8\\piccropt9\\piccropb10 "
                "0a}{\\pict\\picscalex100\\picscaley100\\picw100\\pich100 0b}"),
       "\\pard\\f0\\fs24{"
       "\\pict\\wbitmap0\\wbmbitspixel4\\wbmplanes1\\wbmwidthbytes8\\picw1\\pich2\\picwgoal3\\pichgoal4\\pics"
       "calex50\\picscaley60\\piccropl7\\piccropr8\\piccropt9\\piccropb10 "
       "\r\n0a\r\n}{\\pict\\wbitmap0\\picw100\\pich100 \r\n0b\r\n}"},
      {"digits of a picture",
       Document("{\\pict\\pngblip 8\r\n9 5g0}{\\pict\\pngblip 1}{\\pict\\pngblip "
                "123}x{\\pict\\pngblip{\\*\\picprop 99}4E}"),
       "\\pard\\f0\\fs24{\\pict\\pngblip \r\n8950\r\n}{\\pict\\pngblip \r\n12\r\n}x{\\pict\\pngblip "
       "\r\n4e\r\n}"},
      {"pictures where none is shown",
       Document("{\\v" + picture + "}{\\info" + picture + "}{\\*\\unknown" + picture + "}a{\\stylesheet" +
                picture + "}b"),
       "\\pard\\f0\\fs24 ab"},
      {"both forms of a picture",
       Document("{\\*\\shppict" + picture + "}{\\nonshppict{\\pict\\wmetafile8 01}}{\\*\\shppict" + picture +
                "} {\\nonshppict{\\pict\\wmetafile8 02}}"),
       "\\pard\\f0\\fs24" + canonical + canonical + " {\\pict\\wmetafile8 \r\n02\r\n}"},
      {"objects",
       Document(
           "{\\object\\objemb\\objw40000{\\*\\objclass A.B}{\\*\\objdata "
           "0102020202020202020202020202020202020202020202020202020202020202020202020202020202}{\\result" +
           picture + "}}{\\object\\objlink{\\*\\objclass C}{\\*\\objdata 03}{\\result" + picture +
           "}}{\\object\\objemb{\\*\\objclass D}{\\result" + picture + picture +
           "}}{\\object\\objemb\\objh3{\\*\\objdata 04}{\\result a" + picture + "}}b"),
       "\\pard\\f0\\fs24{\\object\\objemb{\\*\\objclass A.B}\\objw31680{\\*\\objdata "
       "\r\n010202020202020202020202020202020202020202020202020202020202020202020202020202\r\n0202\r\n}{"
       "\\result " +
           canonical + "}}" + canonical + canonical + canonical + "a" + canonical + "b"},
      {"an object whose class comes last",
       Document(
           "{\\object\\objemb{\\*\\objdata 0105}{\\*\\objclass A}{\\result{\\pict\\pngblip "
           "89}}}{\\object\\objemb{\\*\\objclass {B}C}{\\*\\objdata {01}05}{\\result{\\pict\\pngblip 89}}}"),
       "\\pard\\f0\\fs24{\\object\\objemb{\\*\\objclass A}{\\*\\objdata \r\n0105\r\n}{\\result "
       "{\\pict\\pngblip \r\n89\r\n}}}{\\object\\objemb{\\*\\objclass BC}{\\*\\objdata "
       "\r\n0105\r\n}{\\result {\\pict\\pngblip \r\n89\r\n}}}"},
      {"parts of objects outside of them",
       Document("\\objemb\\objw5\\objh6{\\*\\objclass A}{\\*\\objdata 01}{\\result a}{\\object b{\\result "
                "c}}d{\\info{\\object{\\result e}}}"),
       "\\pard\\f0\\fs24 acd"},
      {"an object with binary data",
       Document("{\\object\\objemb{\\*\\objclass \\u65?A\\'42}{\\*\\objdata\\bin2 \200}}{\\result" + picture +
                "}}"),
       "\\pard\\f0\\fs24{\\object\\objemb{\\*\\objclass AAB}{\\*\\objdata \r\n807d\r\n}{\\result " +
           canonical + "}}"},
  });
}

TEST(Content, ReadsOtherGroupsAndSymbols) {
  CheckTexts({
      {"the Unicode form of two",
       Document("{\\upr{a{b}}{\\*\\ud{\\u945?}c}}d{\\info{\\upr{e}{\\*\\ud f}}}{\\*\\ud g}"), "αcdg"},
      {"an equation",
       Document("{\\*\\moMath{\\*\\moMathPr x}{\\mr{\\mrPr{\\i a}}b}{\\moMathPara{\\*\\mfPr c}d}}{\\mfPr "
                "e}{\\*\\xPr f}"),
       "bde"},
      {"pictures have no text",
       Document("a{\\pict\\pngblip 89}b\\trowd\\cellx9\\intbl{\\pict\\pngblip 89}\\cell "
                "c\\line\\cell\\row\\pard d"),
       "ab\r\n\011c\r\n\r\nd"},
      {"the end of a group ends a fallback", Document("{\\u945}?{\\uc2\\u946 x}yz{\\*\\x\\u947}?"), "α?βyz?"},
      {"names of destinations elsewhere",
       Document("{\\falt a}{\\pntxtb b}{\\pntxta c}{\\leveltext d}{\\fname e}f{\\*\\falt g}{\\*\\leveltext "
                "h}{\\fonttbl{\\falt i}{\\f9 J;}}k"),
       "abcfk"},
      {"line ends in the RTF", Document("a\\u945\r\n?b{\r\n\\info c}{\n\\*\r\\unknown d}\\b\r\ne\\'\r\nf"),
       "aαbef"},
      {"a page in mail",
       "{\\rtf1\\fromhtml1 {\\*\\htmltag4 <p>}\\htmlrtf a\\htmlrtf0 b\\htmlrtf1  \\htmlrtf0 c {\\htmlrtf  "
       "}d\\htmlrtf  e\\htmlrtf0 {\\*\\htmltag84 &lt;}\\htmlrtf <\\htmlrtf0 f{\\*\\htmltag84 <b>}\\htmlrtf "
       "g\\htmlrtf0}",
       "b c d<f"},
      {"spaces in front of a destination",
       Document(
           "{  \\info x}{  \\b y}{  }{ \\*\\unknown z}{ a}{\\* b}{\\* \\unknown c}{ \\u945?}{\\*\\u946?}"),
       "  y   a b c αβ"},
      {"symbols", Document("a\\~b\\_c\\-d\\{\\}\\\\\\:e\\|f\\\011g\\\nh\\\r\ni\\\rj\\\007k"),
       "a\u00a0b-cd{}\\ef\011g\r\nh\r\ni\r\njk"},
      {"symbols elsewhere",
       Document("{\\info\\\r\n\\~x}{\\field{\\*\\fldinst HYPERLINK "
                "\"http://a\\~b\\_c\\\011d\\{e\\}\"}{\\fldrslt f}}"),
       "f <http://a\u00a0b-c d{e}>"},
      {"damaged escapes and numbers", Document("a\\'4gb\\'g4c\\'dd\\'4"), "a4gbg4cÝ4"},
      {"binary data in skipped groups",
       Document("a{\\*\\x\\bin4 }}}}b}c{\\*\\x\\bin-1 {d}}e{\\*\\x\\b{\\}}\\\\}f{\\*\\x\\bin0{g}}h\\bin2 "
                "}}i{\\*\\x\\bold{j}\\}}k"),
       "acefhik"},
      {"numbers of words", Document("{\\b-0 a\\b- b\\fs-c\\li--5 d}"), "a- b-c--5 d"},
      {"control characters", "{\\rtf1 a\001b\011c\177d\r\nef\\\011}", "ab\011cdef\011"},
  });
}

TEST(Content, ReadsTextBoxesAndEnds) {
  const std::string two = "\\trowd\\cellx100\\cellx200";
  const std::string bullets = "{\\*\\pn\\pnlvlblt\\pnf2{\\pntxtb\\'B7}}";
  const std::string shape = "{\\shp{\\*\\shpinst{\\shptxt ";
  CheckBodies({
      {"a text box has its own formats",
       Document("\\qc\\b\\ul a" + shape + "b\\par\\qr\\i c}}}d\\par" + bullets + "e" + shape + "f}}}g"),
       "\\pard\\qc\\ul\\b\\f0\\fs24 a\r\n\\par \\pard\\ulnone\\b0 b\r\n\\par \\pard\\qr\\i c\\ul\\b\\i0 "
       "\r\n\\par \\pard\\qc d\r\n\\par "
       "\\pard{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'B7}}\\qc e\r\n\\par "
       "\\pard\\ulnone\\b0 f\\ul\\b \r\n\\par "
       "\\pard{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'B7}}\\qc g"},
      {"a text box at the start of a paragraph",
       Document(shape + "a}}}" + shape + "b\\par}}}c\\par" + shape + "}}}d"),
       "\\pard\\f0\\fs24 a\r\n\\par b\r\n\\par c\r\n\\par d"},
      {"text boxes where a row is open, or only its words stand",
       Document(two + shape + "a}}}\\intbl b\\cell\\row\\pard\\intbl" + shape + "c}}}d\\cell\\row\\pard"),
       two + "\\pard\\intbl\\f0\\fs24 a\\line b\\cell\\row\r\n\\intbl c\\line d\\cell\\row\r\n\\pard "},
      {"a text box around the end of a footnote", Document("a{\\footnote" + shape + "b\\par}}}}c"),
       "\\pard\\f0\\fs24 a [\\line b \\line ]c"},
      {"items and rows at the end", Document("a\\par" + bullets + "b\\par"),
       "\\pard\\f0\\fs24 a\r\n\\par "
       "\\pard{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'B7}}b"},
      {"an item without its end", Document("a\\par" + bullets + "b"),
       "\\pard\\f0\\fs24 a\r\n\\par "
       "\\pard{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'B7}}b"},
      {"an item of a cell without its end", Document(two + "\\intbl" + bullets + "b"),
       "\\pard\\f0\\fs24 \\bullet  b"},
      {"an html entity",
       Document("{\\fromhtml a}{\\*\\htmltag &amp;}{\\htmlrtf &}{\\*\\htmltag x}{\\htmlrtf b}\\htmlrtf  "
                "\\htmlrtf0  c\\tab\\htmlrtf  \\htmlrtf0 d"),
       "\\pard\\f0\\fs24 a&  c\\tab d"},
  });
}

}  // namespace
}  // namespace quillary::platform

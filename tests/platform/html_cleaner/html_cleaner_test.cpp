// The HTML cleaner: what crosses its boundary, the shapes that the last pass
// over the page was written for, well-formed XHTML, and what it refuses.
#include "platform/html_cleaner/html_cleaner.h"

#include <gtest/gtest.h>
#include <pthread.h>

#include <chrono>
#include <random>

#include "html_finishing/late_finish.rules.h"
#include "platform/html_cleaner/inline_order.h"

namespace quillary::platform {
namespace {

Text Page(TextView body) {
  return u"<html>\r\n<head>\r\n<title>t</title>\r\n</head>\r\n<BODY BGCOLOR=\"#FFFFFF\">" + Text(body) +
         u"\r\n</body>\r\n</html>\r\n";
}
Text Clean(TextView body) { return MakeHtmlCleaner()->TidyDLL_CleanHTML(Page(body)); }
Text Xhtml(TextView body) { return MakeHtmlCleaner()->TidyDLL_ToXHTML(Page(body)); }

TEST(HtmlCleaner, WritesTheDocumentTypeOfCleanedPages) {
  const Text line = u"<!DOCTYPE html PUBLIC \"-//W3C//DTD HTML 3.2//EN\">\n<html>";
  EXPECT_EQ(Clean(u"x").substr(0, line.size()), line);
  const Text strict =
      u"<!DOCTYPE html PUBLIC \"-//W3C//DTD HTML 4.01//EN\" \"http://www.w3.org/TR/html4/strict.dtd\">";
  EXPECT_EQ(MakeHtmlCleaner()->TidyDLL_CleanHTML(strict + Page(u"x")).substr(0, line.size()), line);
  EXPECT_TRUE(Xhtml(u"x").starts_with(u"<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Transitional//EN\""));
  EXPECT_FALSE(Holds(MakeHtmlCleaner()->TidyDLL_ParseHTML(Page(u"x")), u"<!DOCTYPE"));
  // The end tags as the driver writes them, once the line ends are whole.
  Text page = Clean(u"x");
  page = rules::RunOver(chains::LateFinish, page);
  EXPECT_TRUE(page.ends_with(u"x\r\n</body>\r\n</html>\r\n"));
}

TEST(HtmlCleaner, KeepsWhatWindows1252HoldsAndReferencesToTheRest) {
  struct {
    const char16_t* name;
    TextView body, html, xhtml;
  } const cases[] = {
      {u"named", u"&nbsp;&ldquo;a&eacute;", u"&nbsp;&ldquo;a&eacute;", u"&#160;&#8220;a&#233;"},
      {u"numbered", u"&#1078;&#x436;&#8364;", u"&#1078;&#x436;&#8364;", u"&#1078;&#1078;&#8364;"},
      {u"of the page", u"\u00E9\u20AC\u201E", u"&#233;&#8364;&#8222;", u"&#233;&#8364;&#8222;"},
      {u"outside", u"a\u0436b\xD83D\xDE00", u"a?b??", u"a?b??"},
      {u"no characters", u"a\u0001\u000B&#1;&#xFFFF;&#xD800;&#99999999999;b", u"ab", u"ab"},
      {u"signs", u"a <? b <% c < d", u"a &lt;? b &lt;% c &lt; d", u"a &lt;? b &lt;% c &lt; d"},
  };
  for (const auto& each : cases) {
    EXPECT_TRUE(Holds(Clean(each.body), u">\n" + Text(each.html) + u"\n</body>")) << Text(each.name).size();
    EXPECT_TRUE(Holds(Xhtml(each.body), u">\n" + Text(each.xhtml) + u"\n</body>")) << Text(each.name).size();
  }
}

TEST(HtmlCleaner, GivesTheShapesThatTheLastPassJoins) {
  // Long enough to be broken at the attributes that are meant.
  const Text body =
      u"<table bordercolorlight=\"#000000\" border=\"1\" bordercolordark=\"#000000\" bordercolor=\"#000000\" "
      u"cellspacing=\"0\" cellpadding=\"0\"><tr><td>cell</table>"
      u"<ul><font FACE=\"Times New Roman\" SIZE=\"2\" COLOR=\"#ff0000\" >stray</font><li>item</ul>"
      u"<p><img align=\"left\" border=\"0\" alt=\"A picture of an old bridge\" "
      u"src=\"file:///c:/windows/temp/object000.png\">"
      u"<p align=\"left\"><font SIZE=\"2\" COLOR=\"#0000ff\" class=\"en-gb-x-oe\" FACE=\"Arial\" >face</font>"
      u"<p><font face=\"Arial\"><font color=\"#ff0000\"><font size=\"1\"><br></font></font></font>x";
  Text page = Xhtml(body);
  for (const char16_t* shape :
       {u"\n      ", u"=\r\n\"", u"\"\ncolor=", u"\"\nsrc=", u"<br />", u"<li style=\"list-style: none\">"}) {
    EXPECT_TRUE(Holds(page, shape)) << Text(shape).size() << "\n" << std::string(page.begin(), page.end());
  }
  page = rules::RunOver(chains::LateFinish, page);
  EXPECT_TRUE(Holds(page,
                    u"<table bordercolorlight=\"#000000\" border=\"1\" bordercolordark=\"#000000\" "
                    u"bordercolor=\"#000000\" cellspacing=\"0\" cellpadding=\"0\">"));
  EXPECT_TRUE(Holds(page, u"size=\"2\" COLOR=\"#FF0000\">stray")) << std::string(page.begin(), page.end());
  EXPECT_TRUE(Holds(page, u"<li><font"));
  EXPECT_TRUE(Holds(page, u"class=\"en-gb-x-oe\" face=\"Arial\">"));
  EXPECT_TRUE(Holds(page, u"old bridge\" src=\"file"));
  EXPECT_FALSE(Holds(page, u"=\r\n")) << std::string(page.begin(), page.end());
  EXPECT_FALSE(Holds(page, u"<font size=\"1\">")) << std::string(page.begin(), page.end());
}

// Whether every tag of an XML text has its end, its values in quotation marks,
// and every "&" its name or number.
std::string WhyNotWellFormed(const Text& xml) {
  std::vector<Text> open;
  std::size_t roots = 0;
  for (std::size_t i = 0; i < xml.size(); ++i) {
    const char16_t character = xml[i];
    if (character < 0x20 && character != u'\t' && character != u'\n' && character != u'\r')
      return "a control character";
    if (character >= 0x7F) return "a character that is not ASCII";
    if (character == u'&') {
      const std::size_t end = xml.find(u';', i);
      const Text name = end == Text::npos ? Text() : xml.substr(i + 1, end - i - 1);
      const bool known = name == u"amp" || name == u"lt" || name == u"gt" || name == u"quot";
      if (!known && (name.size() < 2 || name[0] != u'#')) return "an open reference";
    }
    if (character != u'<' || xml.compare(i, 9, u"<!DOCTYPE") == 0) continue;
    const bool closes = xml[i + 1] == u'/';
    std::size_t at = i + (closes ? 2 : 1);
    const std::size_t name_end = xml.find_first_of(u" />\r\n\t", at);
    const Text name = xml.substr(at, name_end - at);
    at = name_end;
    while (xml[at] != u'>' && xml[at] != u'/') {
      at = xml.find_first_not_of(u" \r\n\t", at);
      if (xml[at] == u'>' || xml[at] == u'/') break;
      const std::size_t equals = xml.find(u'=', at);
      const std::size_t quote = xml.find_first_not_of(u" \r\n\t", equals + 1);
      if (quote == Text::npos || (xml[quote] != u'"' && xml[quote] != u'\'')) return "a value without quotes";
      const std::size_t end = xml.find(xml[quote], quote + 1);
      if (end == Text::npos || xml.substr(quote, end - quote).find(u'<') != Text::npos)
        return "an open value";
      at = end + 1;
    }
    if (closes) {
      if (open.empty() || open.back() != name) return "crossed ends";
      open.pop_back();
    } else if (xml[at] != u'/') {
      if (open.empty() && ++roots > 1) return "a second root";
      open.push_back(name);
    }
    i = xml.find(u'>', at);
  }
  return open.empty() && roots == 1 ? "" : "an element without its end";
}

TEST(HtmlCleaner, WritesWellFormedXhtmlWhateverItGets) {
  const std::vector<Text> pieces{u"<font FACE=\"Arial\" SIZE=\"3\" COLOR=\"#000000\" >",
                                 u"</font>",
                                 u"<b>",
                                 u"</b>",
                                 u"<i>",
                                 u"</i>",
                                 u"<u>",
                                 u"<br> ",
                                 u"<p>",
                                 u"</p>",
                                 u"<ul>",
                                 u"</ul>",
                                 u"<li>",
                                 u"</li>",
                                 u"<table><tr><td>",
                                 u"</td></tr></table>",
                                 u"<table>",
                                 u"</table>",
                                 u"<tr>",
                                 u"</tr>",
                                 u"<td colspan=2>",
                                 u"</td>",
                                 u"<CENTER>",
                                 u"</CENTER>",
                                 u"<span style=\"background-color: #ffff00\">",
                                 u"</span>",
                                 u"<a href=\"http://x.y/?a=1&b=2\">",
                                 u"</a>",
                                 u"text ",
                                 u"&nbsp;",
                                 u"\u00E9",
                                 u"&#1;",
                                 u"<",
                                 u">",
                                 u"\"",
                                 u"&",
                                 u"&unknown;",
                                 u"<!-- a -- b -->",
                                 u"<!--",
                                 u"<o:p>",
                                 u"<?x ?>",
                                 u"<![CDATA[x]]>",
                                 u"<!DOCTYPE x>",
                                 u"<font x:y=\"1\" 5=\"2\" a<b>",
                                 u"<script>a<b",
                                 u"</script>",
                                 u"<style>",
                                 u"<math>",
                                 u"<svg>",
                                 u"<pre>",
                                 u"</pre>",
                                 u"<h1>",
                                 u"<form>",
                                 u"<frameset>",
                                 u"<title>",
                                 u"\r\n"};
  std::mt19937 random(3);
  for (int i = 0; i < 500; ++i) {
    Text body;
    for (std::size_t count = random() % 40; count > 0; --count) body += pieces[random() % pieces.size()];
    Text page = Xhtml(body);
    ASSERT_EQ(WhyNotWellFormed(page), "") << std::string(page.begin(), page.end());
    page = rules::RunOver(chains::LateFinish, page);
    ASSERT_EQ(WhyNotWellFormed(page), "") << std::string(page.begin(), page.end());
  }
}

Text Repeated(TextView piece, int count) {
  Text whole;
  for (int i = 0; i < count; ++i) whole += piece;
  return whole;
}

TEST(HtmlCleaner, RefusesQuicklyWhatTheLibraryCannotBear) {
  const auto start = std::chrono::steady_clock::now();
  for (const Text& body : {Repeated(u"<table><tr><td>", 60000), Repeated(u"<sup>x", 20000),
                           Repeated(u"<small>", 450) + Repeated(u"<p>x", 1000), Repeated(u"<div>", 100000)}) {
    for (const auto clean : {Clean, Xhtml}) {
      try {
        clean(body);
        ADD_FAILURE() << "not refused: " << body.size();
      } catch (const Failure& failure) {
        EXPECT_EQ(failure.kind(), Failure::Kind::Raised);
      }
    }
  }
  EXPECT_THROW(Clean(u"<font" + Repeated(u" a=\"1\"", 20000) + u">x"), Failure);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

TEST(HtmlCleaner, KeepsTheFormatThatABrowserShows) {
  constexpr struct {
    std::string_view page, ordered;
  } kCases[] = {
      // Across each other, and ends of what is not open.
      {"<b>a<i>b</b>c</i>d", "<b>a<i>b</i></b><i>c</i>d"},
      {"<font size=2>a</b></i>b</font></font>c", "<font size=2>ab</font>c"},
      {"<b><FONT FACE=\"A\"></b>a</font>b", "<FONT FACE=\"A\">a</font>b"},
      {"<sup>a<b>b</sup>c</b>", "<sup>a<b>b</b></sup><b>c</b>"},
      {"<b>a<sup>b</b>c</sup>", "<b>a<sup>b</sup></b>c"},
      // Across blocks and lists.
      {"<b>a<p>b<ul> <li>c</li></ul>d", "<b>a</b><p><b>b</b><ul> <li><b>c</b></li></ul><b>d</b>"},
      {"<p><span style=\"color:red\"><b>a</p>b", "<p><span style=\"color:red\"><b>a</b></span></p><b>b</b>"},
      {"<u>a <p> b</u> c", "<u>a </u><p><u> b</u> c"},
      // Into a table goes the face alone; out of it comes what stood between cells.
      {"<b><font face=\"A\" size=5>a<table><tr><td>b</td></tr></table>c",
       "<b><font face=\"A\" size=5>a</font></b><table><tr><td><font face=\"A\">b</font></td></tr></table>"
       "<b><font face=\"A\" size=5>c</font></b>"},
      {"<table><tr><td></font><center><i>a<td>b</i></center></table>c",
       "<table><tr><td><center><i>a</i><td>b</table>c"},
      {"<font face=\"A\"><table><td><font face=\"B\">a</font>b</font>c",
       "<table><td><font face=\"B\">a</font><font face=\"A\">bc</font>"},
      {"<b>a<table><td>b</table>c", "<b>a</b><table><td>b</table><b>c</b>"},
      {"<table><i><tr><td>a</table>b", "<table><tr><td>a</table><i>b</i>"},
      // What another covers is not written until that ends.
      {"<b><b>a</b>b</b>c", "<b>ab</b>c"},
      {"<font size=1 color=x>a<font size=2>b<font size=3 color=y>c</font>d</font>e",
       "<font size=1 color=x>a<font size=2>b</font></font><font size=3 color=y>c</font>"
       "<font size=1 color=x><font size=2>d</font>e</font>"},
      {"<span style=\"color:a\">a<span style=\"background-color:b\">b<span style=\"color:c\">c",
       "<span style=\"color:a\">a<span style=\"background-color:b\">b</span></span>"
       "<span style=\"background-color:b\"><span style=\"color:c\">c</span></span>"},
      {"<sub>a<sub>b", "<sub>a<sub>b</sub></sub>"},
      // Anchors, things without an end, and what is no markup.
      {"<a name=\"x\"></a><a href=\"y\">a<a href=\"z\">b",
       "<a name=\"x\"></a><a href=\"y\">a</a><a href=\"z\">b</a>"},
      {"<i><br><hr><img src=\"a>b\">", "<i><br></i><hr><i><img src=\"a>b\"></i>"},
      {"<b><!-- <i> -->a</b><!-- <u>", "<!-- <i> --><b>a<!-- <u></b>"},
      // Across items and lines.
      {"<p><sup>a<ul><li>b<div>c", "<p><sup>a</sup><ul><li>b<div>c"},
      {"<p><sup>a<ul><li>b<hr>c", "<p><sup>a</sup><ul><li>b<hr>c"},
      {"<p><sup>a<ul><li>b<p>c</ul>d</p>e", "<p><sup>a</sup><ul><li>b<p>c</ul>d</p>e"},
      {"<p><sup>a<hr>b<p><sub>c<div>d<p><sup>e<h1>f",
       "<p><sup>a</sup><hr>b<p><sub>c</sub><div>d<p><sup>e</sup><h1>f"},
      {"<ul><li><sup>a<ul></li>b</ul></li>c", "<ul><li><sup>a</sup><ul></li><sup>b</sup></ul></li>c"},
      {"<ol><li><sup>a<ol><li>b</ol>c<li>d",
       "<ol><li><sup>a</sup><ol><li><sup>b</sup></ol><sup>c</sup><li>d"},
      {"<dl><dt><sup>a<dl><dd>b</dl>c<dt>d",
       "<dl><dt><sup>a</sup><dl><dd><sup>b</sup></dl><sup>c</sup><dt>d"},
      {"<div><sup>a</div>b</div>c</p>d</hr>e", "<div><sup>a</sup></div>bc</p>d</hr>e"},
      {"<p><sub>a<div>b</p>c</sub>d", "<p><sub>a</sub><div>b</p>cd"},
      {"<div><sub><p>a</sub>b</div>c", "<div><p><sub>ab</sub></div>c"},
      {"<small>a<big>b</small>c</big><code>d<tt>e</code>f",
       "<small>a<big>b</big></small><big>c</big><code>d<tt>e</tt></code><tt>f</tt>"},
      // Cells, and rows without them.
      {"<table><tbody><td><sup>a<tr><b>b</tbody><td>c</td></tr></table></table>d",
       "<table><tbody><td><sup>a</sup><tr><b>b</b></tbody><td>c</td></tr></table></table><b>d</b>"},
      {"<tr><td><b>a<td>b</td>c</tr>d", "<tr><td><b>a</b><td><b>b</b></td><b>c</b></tr><b>d</b>"},
      {"<b><table></b><td>a</table>b", "<table><td>a</table><b>b</b>"},
      {"<table><td><table><i><sub><td>a</table>b</td>c</table>d",
       "<table><td><table><td>a</table><i>b</i></td>c</table>d"},
      {"<table><td>a</table><b>b<table><u><td>c</u>d", "<table><td>a</table><b>b</b><table><td>cd"},
      // The face in a cell is the last that was named.
      {"<span style=\"font-family:A;color:b\">a<table><td>b<span style='font-family:C'>c</table>d",
       "<span style=\"font-family:A;color:b\">a</span><table><td><span style=\"font-family:A\">b</span><span "
       "style='font-family:C'>c</span></table><span style=\"font-family:A;color:b\">d</span>"},
      {"<font face=\"A\"><span style=\"font-family:B\"><table><td>x</table></span><table><td>y",
       "<table><td><span style=\"font-family:B\">x</span></table><table><td><font face=\"A\">y</font>"},
      {"<span style=\"font-family:A\"><font face=B><table><td>x</table></font><table><td>y",
       "<table><td><font face=\"B\">x</font></table><table><td><span style=\"font-family:A\">y</span>"},
      {"<font size=1 face=\"A b\" color=c><font face=D>a</font><table><td>b<font size=2>c<table><td>d",
       "<font size=1 face=\"A b\" color=c><font face=D>a</font></font><table><td><font face=\"A b\">b<font "
       "size=2>c</font></font><table><td><font face=\"A b\">d</font>"},
      {"<font size=1><table><td>a</table><font Face=\"A<table><td>b",
       "<table><td>a</table><table><td><font face=\"A\">b</font>"},
      // What names something else is not covered.
      {"<font size=1 x=y>a<font size=2>b<font size=3>c",
       "<font size=1 x=y>a<font size=2>b</font><font size=3>c</font></font>"},
      {"<font>a<span>b<span style=\"color:a;text-align:b\">c<span style=\"color:d\">e",
       "<font>a<span>b<span style=\"color:a;text-align:b\">c<span "
       "style=\"color:d\">e</span></span></span></font>"},
      {"<font color=a size=b face=c><font face=d><font size=e><font color=f>g</font>h</font>i</font>j",
       "<font face=d><font size=e><font color=f>g</font></font></font><font color=a size=b face=c><font "
       "face=d><font size=e>h</font>i</font>j</font>"},
      {"<span style=\"background-color:a;font-size:b\"><span style=\"font-family:c;color:d\">e</span>f",
       "<span style=\"background-color:a;font-size:b\"><span "
       "style=\"font-family:c;color:d\">e</span>f</span>"},
      {"<title><b></title><!-- <b> -->a<font size=2<b>b",
       "<title><b></title><!-- <b> -->a<font size=2><b>b</b></font>"},
  };
  for (const auto& each : kCases) EXPECT_EQ(WithInlinesInOrder(each.page), each.ordered);
}

TEST(HtmlCleaner, BearsDeepPagesWhateverTheStackOfItsCaller) {
  const auto clean_deep = [](void* cleaned) -> void* {
    *static_cast<bool*>(cleaned) = Holds(Clean(Repeated(u"<blockquote>", 7500) + u"deep"), u"deep");
    return nullptr;
  };
  pthread_attr_t small;
  ASSERT_EQ(pthread_attr_init(&small), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&small, std::size_t{256} << 10), 0);
  pthread_t caller;
  bool cleaned = false;
  ASSERT_EQ(pthread_create(&caller, &small, clean_deep, &cleaned), 0);
  pthread_join(caller, nullptr);
  pthread_attr_destroy(&small);
  EXPECT_TRUE(cleaned);
}

TEST(HtmlCleaner, TakesLongPagesThatCloseWhatTheyOpen) {
  const Text cells =
      u"<table>" + Repeated(u"<tr><td><font size=\"3\"><b>c</b></font></td></tr>", 3000) + u"</table>";
  const Text open_fonts = u"<table>" + Repeated(u"<tr><td><font size=\"3\">c<p>d", 5000) + u"</table>";
  const Text covered_fonts = Repeated(u"<font size=\"3\"><font face=\"Arial\"><b>x<p>", 20000);
  for (const Text& body :
       {cells, open_fonts, covered_fonts, Repeated(u"<p><b>a</b><i>b</i>", 3000), Repeated(u"<li>x", 5000),
        Repeated(u"<b><i>x</b></i>", 5000), Repeated(u"</font>", 5000)}) {
    EXPECT_NO_THROW(Clean(body));
  }
}

}  // namespace
}  // namespace quillary::platform

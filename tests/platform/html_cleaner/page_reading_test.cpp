// What the HTML cleaner makes of a page before its library sees it: tags, bytes and
// bounds.
#include <gtest/gtest.h>

#include "platform/html_cleaner/inline_order.h"
#include "platform/html_cleaner/page_bounds.h"
#include "platform/html_cleaner/page_encoding.h"
#include "platform/html_cleaner/tags.h"

namespace quillary::platform {
namespace {

TEST(PageReading, FindsTheEndsOfTags) {
  constexpr struct {
    std::string_view page;
    std::size_t at;
    bool closes;
    std::string_view name;
    std::size_t end;
  } kCases[] = {
      {"<B>x>", 0, false, "b", 3},
      {"a<H1>x", 1, false, "h1", 5},
      {"</Font >x", 0, true, "font", 8},
      {"<a-b>", 0, false, "a", 5},
      {"<", 0, false, "", 1},
      {"</", 0, true, "", 2},
      {"<a", 0, false, "a", 2},
      {"<a b", 0, false, "a", 4},
      {"<a b<c>", 0, false, "a", 4},
      {"<a b='>' c>d>", 0, false, "a", 11},
      {"<a b=\"'>\" c>d>", 0, false, "a", 12},
      // A value without its end.
      {"<a b='>c>d", 0, false, "a", 7},
      {"<a b='>' c='>d>", 0, false, "a", 13},
      {"<a b='c", 0, false, "a", 7},
      {"<a b='>c<d", 0, false, "a", 7},
  };
  for (const auto& each : kCases) {
    const Tag tag = ReadTag(each.page, each.at);
    EXPECT_EQ(tag.closes, each.closes) << each.page;
    EXPECT_EQ(tag.name, each.name) << each.page;
    EXPECT_EQ(tag.end, each.end) << each.page;
  }
  EXPECT_EQ(EndTagOf("<a></a></B></b>", "b", 0), 7U);
  EXPECT_EQ(EndTagOf("</b></b>", "b", 1), 4U);
  EXPECT_EQ(EndTagOf("<b></", "b", 0), 5U);
  EXPECT_TRUE(StartsWithName("Pre", "pre"));
  EXPECT_TRUE(StartsWithName("PREx", "pre"));
  EXPECT_FALSE(StartsWithName("pr", "pre"));
  EXPECT_FALSE(StartsWithName("prx", "pre"));
  for (const std::string_view name : {"a", "Z-9.x_", "_a"}) EXPECT_TRUE(IsPlainName(name)) << name;
  for (const std::string_view name : {"", "1", "-a", "a:b", "a b", ".", "\xe9"}) {
    EXPECT_FALSE(IsPlainName(name)) << name;
  }
}

TEST(PageReading, LeavesOutWhatIsNoCharacterAndNoMarkup) {
  constexpr struct {
    TextView html;
    std::string_view page;
  } kCases[] = {
      {u"a\u0001\t\n\r\u001f b", "a\t\n\r b"},
      {u"<a</a<!--<1< a<", "<a</a<!--&lt;1&lt; a&lt;"},
      {u" \r\n<!DocType x><!doctype y>", " \r\n<!DocType x>&lt;!doctype y>"},
      {u"&#8;&#9;&#10;&#11;&#12;&#13;&#14;&#31;&#32;", "&#9;&#10;&#13;&#32;"},
      {u"&#xD7FF;&#xD800;&#xDFFF;&#xE000;&#XFFFD;&#xFFFE;&#xFFFF;", "&#xD7FF;&#xE000;&#XFFFD;"},
      {u"&#x1FFFD;&#x1FFFE;&#x1FFFF;&#x10FFFD;&#x10FFFF;&#x110000;", "&#x1FFFD;&#x10FFFD;"},
      {u"&#1a&#1 &#1&#x1g&#1;;&#", "a g;&#"},
      {u"&#;&#x;&#x&#g&#-1;&amp;&", "&#;&#x;&#x&#g&#-1;&amp;&"},
      {u"&#99999999999999999999;a&#x99999999999999999999", "a"},
      {u"\u20ac\u0436", "\x80?"},
  };
  for (const auto& each : kCases) EXPECT_EQ(EncodePage(each.html), each.page);
  EXPECT_EQ(WithoutForeignElements("a<Script>b</b></SCRIPT x>c<scripts>d<style>e"), "ac<scripts>d");
  EXPECT_EQ(WithoutForeignElements("<svg/><b></svg>a<math x></math"), "a");
  EXPECT_EQ(WithoutForeignElements("a<math"), "a");
  EXPECT_EQ(WithoutForeignElements("a<mat<<b>c</svg>"), "a<mat<<b>c</svg>");
}

std::string Repeated(std::string_view piece, int count) {
  std::string whole;
  for (int i = 0; i < count; ++i) whole += piece;
  return whole;
}

TEST(PageReading, KnowsHowDeepAPageNests) {
  const struct {
    std::string page;
    bool within;
  } cases[] = {
      {Repeated("<div>", 8000), true},
      {Repeated("<div>", 8001), false},
      {Repeated("<b>", 8001), false},
      {Repeated("<ul>", 4000), true},
      {Repeated("<ul>", 4000) + "<i>", false},
      {Repeated("<table>", 2000), true},
      {Repeated("<table>", 2000) + "<i>", false},
      {Repeated("<p><br><!-- -->< ", 9000), true},
      // What is closed counts no more.
      {Repeated("<div></div>", 9000), true},
      {Repeated("<div><b><i></div>", 9000), true},
      {Repeated("<b></b>", 9000), true},
      {Repeated("<b><div></b></div>", 9000), true},
      {Repeated("<i><b></i>", 8000) + "<u>", false},
      {Repeated("<b><i><u></b></i></u>", 9000), true},
      {Repeated("</div></b><b>", 8000), true},
      {Repeated("<ul></ul><table></table>", 9000), true},
      // And what stands in a cell only until it ends.
      {"<table>" + Repeated("<td><b><i>", 9000), true},
      {"<table>" + Repeated("<b></td><i></tr>", 9000), true},
      {"<table>" + Repeated("<td>", 9000) + Repeated("<b>", 7996), true},
      {"<table>" + Repeated("<td>", 9000) + Repeated("<b>", 7997), false},
      {Repeated("<td><b>", 8001), false},
      {"<table></table>" + Repeated("<td><b>", 8001), false},
      {"<p " + Repeated("a=1 ", 1000) + ">", true},
      {"<p " + Repeated("a=1 ", 1001) + ">", false},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(IsWithinBounds(each.page), each.within) << each.page.substr(0, 40) << " " << each.page.size();
  }
}

TEST(PageReading, OrdersInlineElementsWithinBounds) {
  const struct {
    std::string page;
    bool within;
  } cases[] = {
      {Repeated("<sup>", 500) + "x", true},
      {Repeated("<sup>", 501) + "x", false},
      {Repeated("<div>", 8000), true},
      {Repeated("<div>", 8001), false},
      {Repeated("<table><td>", 3999) + "<table>", true},
      {Repeated("<table><td>", 4000), false},
      // Each paragraph opens four elements again: more of them than the page allows.
      {"<b><i><u><tt>" + Repeated("<p>x", 66669), true},
      {"<b><i><u><tt>" + Repeated("<p>x", 66670), false},
      {"<table><td><b><i><u><tt>" + Repeated("<p>x", 40000) + "<td>", true},
      {"<table>" + Repeated("<td><b><i><u><tt>" + Repeated("<p>x", 40000), 2), false},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(WithInlinesInOrder(each.page).has_value(), each.within)
        << each.page.substr(0, 40) << " " << each.page.size();
  }
}

}  // namespace
}  // namespace quillary::platform

// From the bytes of a page to the text that the rules get.
#include "page_reader/page_reader.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>

#include "page_reader/page_text.h"
#include "text/encodings.h"

namespace quillary::page_reader {
namespace {

struct PageCase {
  std::string page;
  std::string text;
};

template <std::size_t count>
void ExpectPages(const PageCase (&cases)[count]) {
  for (const PageCase& row : cases) EXPECT_EQ(row.text, ToUtf8(ReadPage(row.page))) << row.page;
}

std::string Meta(const std::string& charset) {
  return "<meta http-equiv=Content-Type content=\"text/html; charset=" + charset + "\">";
}

// A page is its declaration and two bytes, which say in what it was read.
TEST(PageCharset, IsTheOneDeclared) {
  const std::string long_comment = "<!--" + std::string(2000, ' ') + "-->";
  const struct {
    std::string head;
    std::string read;
  } cases[] = {
      {"", "&#8364;&#223;"},
      {"<meta charset=iso-8859-5>", "&#8364;&#1087;"},
      {"<META CHARSET='Iso-8859-5'>", "&#8364;&#1087;"},
      {"<meta/charset = \" iso-8859-5 \"/>", "&#8364;&#1087;"},
      {Meta("iso-8859-5"), "&#8364;&#1087;"},
      {Meta("koi8-r"), "&#9472;&#1098;"},
      {Meta("iso-8859-5;x=y"), "&#8364;&#1087;"},
      {Meta("'iso-8859-5'"), "&#8364;&#1087;"},
      {"<meta content='text/html; charset= \"iso-8859-5\"' http-equiv='content-type'>", "&#8364;&#1087;"},
      {"<meta http-equiv=content-type content=text/html;charset=iso-8859-5>", "&#8364;&#1087;"},
      {"<meta http-equiv=content-type content='charset charset=iso-8859-5'>", "&#8364;&#1087;"},
      {"<?xml version='1.0' encoding='iso-8859-5'?>", "&#8364;&#1087;"},
      {"<?xml encoding='koi8-r'?><meta charset=iso-8859-5>", "&#8364;&#1087;"},
      {long_comment + "<meta charset=iso-8859-5>", "&#8364;&#1087;"},
      {"<meta charset=nobodys><meta charset=iso-8859-5>", "&#8364;&#1087;"},
      {"<meta charset=iso-8859-5 charset=koi8-r><meta charset=koi8-r>", "&#8364;&#1087;"},
      {"<p a='>'><title>x</title><meta charset=iso-8859-5>", "&#8364;&#1087;"},
      // No declarations.
      {"<!-- <meta charset=iso-8859-5> -->", "&#8364;&#223;"},
      {"<p title='<meta charset=iso-8859-5>'>", "&#8364;&#223;"},
      {"<metal charset=iso-8859-5></meta charset=iso-8859-5>", "&#8364;&#223;"},
      {"<meta name=x content='text/html; charset=iso-8859-5'>", "&#8364;&#223;"},
      {"<meta http-equiv=refresh content='charset=iso-8859-5'>", "&#8364;&#223;"},
      {"<meta http-equiv=content-type content='charset=\"iso-8859-5'>", "&#8364;&#223;"},
      {"<meta charset='' http-equiv=content-type content='charset=iso-8859-5'>", "&#8364;&#223;"},
      {"<?xml version='1.0'?>encoding='iso-8859-5'", "&#8364;&#223;"},
      {"<p>" + std::string(9000, 'x') + "<meta charset=iso-8859-5>", "&#8364;&#223;"},
      // The page shows that its declaration is wrong.
      {"<meta charset=utf-8>", "&#8364;&#223;"},
      {"<meta charset=utf-16>", "&#8364;&#223;"},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(row.head + row.read, ToUtf8(ReadPage(row.head + "\x80\xDF")));
  }
  // UTF-8 with faults is UTF-8 if any of it is.
  ExpectPages({
      {"<meta charset=utf-8>\x80\xC3\xA4", "<meta charset=utf-8>&#65533;&#228;"},
      {"<meta charset=utf-8>\x80\xEF\xBF\xBD", "<meta charset=utf-8>&#65533;&#65533;"},
  });
}

TEST(PageCharset, IsThatOfTheByteOrderMark) {
  const std::string declared = "<meta charset=koi8-r>";
  ExpectPages({
      {"\xEF\xBB\xBF" + declared + "\xC3\xA4\xFF", declared + "&#228;&#65533;"},
      {"\xEF\xBB\xBF\xFF", "&#65533;"},
      {std::string("\xFF\xFE<\0b\0>\0\xAC\x20", 10), "<b>&#8364;"},
      {std::string("\xFE\xFF\0<\0b\0>\x20\xAC", 10), "<b>&#8364;"},
      {std::string("\xFF\xFE\0\0<\0\0\0\0\xD8\0\0\0\xF6\x01\0", 16), "&lt;&#65533;&#55357;&#56832;"},
      {std::string("\0\0\xFE\xFF\0\x11\0\0\0\0\0<", 12), "&#65533;&lt;"},
      {std::string("<\0?\0x\0>\0\xAC\x20", 10), "<?x>&#8364;"},
      {std::string("\0<\0?\0x\0>\x20\xAC", 10), "<?x>&#8364;"},
  });
}

TEST(PageReader, LeavesWhatTheRulesDecode) {
  ExpectPages({
      {"<meta content='' charset=\"Windows-1251\">\xCF-&mdash;",
       "<meta content='' charset=\"Windows-1251\">Ï-&#8212;"},
      {"<meta charset='windows-1251'>\x80", "<meta charset='windows-1251'>€"},
      {"<meta charset=windows-1251>\xCF", "<meta charset=windows-1251>&#1055;"},
      {"<meta charset=cp1251><p a='windows-1251'>\xCF", "<meta charset=cp1251><p a='windows-1251'>Ï"},
      {"<meta charset=koi8-r><p a='windows-1251'>\xF0", "<meta charset=koi8-r><p a='windows-1251'>&#1055;"},
  });
}

TEST(PageText, IsSpelledForTheRules) {
  ExpectPages({
      // Characters.
      {"<meta charset=utf-8>\u00E9\u2014\u00A0\U0001F600\u0085",
       "<meta charset=utf-8>&#233;&#8212;&nbsp;&#55357;&#56832;&#8230;"},
      {std::string("a\0\x01\x1F b\f\t\r\n", 10), "a&#65533; b \t\r\n"},
      {"&\x01#x41;&am\x02p;", "&#65;&amp;"},
      {"a < b<1 << <b>", "a &lt; b&lt;1 &lt;&lt; <b>"},
      // Names.
      {"&eacute;&mdash;&Afr;&NotEqualTilde;", "&#233;&#8212;&#55349;&#56580;&#8770;&#824;"},
      {"&quot;&amp;&lt;&gt;&nbsp;&sup1;&sup2;&sup3;&brvbar;&brkbar;&NonBreakingSpace;",
       "&quot;&amp;&lt;&gt;&nbsp;&sup1;&sup2;&sup3;&brvbar;&brkbar;&nbsp;"},
      {"&AMP;&LT&apos;&bsol;&lbrace;&num;&semi;&sol;", "&#38;&#60;&#39;&#92;&#123;&#35;&#59;&#47;"},
      {"a&Tab;b&NewLine;&lpar;&ast;&nvlt;&fjlig;", "a\tb\n(*&#60;&#8402;&#102;&#106;"},
      {"&copy 1 &copyright &amplt; &nbspx &notin; &notit; &sup2",
       "&#169; 1 &#169;right &amp;lt; &nbsp;x &#8713; &#172;it; &sup2;"},
      {"&CounterClockwiseContourIntegral;", "&#8755;"},
      {"&CounterClockwiseContourIntegralX;&mdash &Mdash; &; & && &",
       "&CounterClockwiseContourIntegralX;&mdash &Mdash; &; & && &"},
      // Numbers.
      {"&#65;&#x2014;&#X41&#0065 &#8212x", "&#65;&#8212;&#65;&#65; &#8212;x"},
      {"&#128;&#x97;&#159&#129;&#160;", "&#8364;&#8212;&#376;&#129;&nbsp;"},
      {"&#0;&#xD800;&#32;&#56832;&#1114112;&#x10FFFF;&#99999999999999999999;",
       "&#65533;&#65533;&#32;&#65533;&#65533;&#56319;&#57343;&#65533;"},
      {"&#55357;&#xDE00&#55357;&#55357;&#56832;", "&#55357;&#56832;&#65533;&#55357;&#56832;"},
      {"&#9;&#10;&#13;&#12;&#127;", "\t\n\r &#127;"},
      {"&#;&#x;&#-1;&#a &#", "&amp;#;&amp;#x;&amp;#-1;&amp;#a &amp;#"},
  });
}

TEST(PageText, LeavesMarkupAsItIs) {
  // Where the markup ends, the text after it begins to be spelled.
  const struct {
    std::string markup;
    std::string text;
  } cases[] = {
      {"<p title='\xE9>&eacute;'\n", ">"},
      {"<p title = \"\xE9>'&eacute;\"", ">"},
      {"<p title=\xE9\"", ">"},
      {"<p \"", ">"},
      {"<p =\"", ">"},
      {"<p/a='>'/", ">"},
      {"<p a=", ">"},
      {"</p \xE9", ">"},
      {"<!DOCTYPE \"\xE9", ">"},
      {"<?xml \xE9?", ">"},
      {"</ \xE9", ">"},
      {"<!-- \xE9 > &eacute; --", ">"},
      {"<!--\xE9--!", ">"},
      {"<!--", ">"},
      {"<!---", ">"},
      {"<!--!>\xE9--", ">"},
      {"<SCRIPT a>'<b>\xE9</b></scripts>&eacute;</Script", ">"},
      {"<style><!--\xE9--></style \xE9", ">"},
      {"", "<scripts>"},
      {"", "<title>"},
  };
  for (const auto& row : cases) {
    const std::string start = row.markup + row.text;
    EXPECT_EQ(FromWindows1252(start) + u"&#233;&#233;<b>&#233;", ReadPage(start + "\xE9&eacute;<b>\xE9"))
        << start;
  }
  for (const char* open : {"<p a='\xE9>", "<!-- \xE9>", "<style>\xE9</", "<script>\xE9<!--"}) {
    EXPECT_EQ(FromWindows1252(open), ReadPage(open)) << open;
  }
  for (const std::string open : {"<p \xE9", "<!\xE9", "<!--\xE9--", "<p a", "<p a="}) {
    EXPECT_EQ(u"&#233;<b>a", ReadPage("\xE9<b>a" + open)) << open;
  }
}

TEST(PageText, StaysAsItIsWhenItIsSpelled) {
  const Text pieces[] = {u"&",      u"#",       u"x",        u"X41",     u";",      u"6",           u"&#",
                         u"&#x",    u"am",      u"p;",       u"&num;",   u"&semi;", u"&fjlig;",     u"&sol;",
                         u"&excl;", u"&quest;", u"<",        u">",       u"/",      u"!",           u"--",
                         u"b",      u" ",       u"\u00E9",   u"😀",       u"\u0085", Text(1, u'\0'), u"\x01",
                         u"&#1",    u"&#10;",   u"&#55357;", u"&#56832", u"'",      u"=",           u"script",
                         u"&not",   u"in",      u"\u00A0",   u"&bne;",   u"\f"};
  std::mt19937 random(11);
  for (int round = 0; round < 50000; ++round) {
    Text page;
    for (std::size_t count = random() % 12; count > 0; --count) page += pieces[random() % std::size(pieces)];
    const Text spelled = SpellPage(page);
    ASSERT_EQ(ToUtf8(spelled), ToUtf8(SpellPage(spelled))) << ToUtf8(page);
  }
}

TEST(PageText, CostsWhatItIsLong) {
  // Each of these would take minutes if anything were searched for again and again.
  for (const char* piece : {"<", "<a", "</", "<!--", "<!", "<p a='", "<p a=\"b", "<script>", "&", "&#",
                            "&#55357;", "&CounterClockwise", "<style></", "--"}) {
    std::string page;
    while (page.size() < 2'000'000) page += piece;
    const auto start = std::chrono::steady_clock::now();
    ReadPage(page);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10)) << piece;
  }
}

}  // namespace
}  // namespace quillary::page_reader

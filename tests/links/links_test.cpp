// The scans of links against their reference implementations, and what a page of
// nothing but traps costs them.
#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <random>

#include "links/bracket_links.h"
#include "links/email_addresses.h"
#include "links/label_links.h"
#include "links/link_lists.h"
#include "links/links_reference.h"
#include "links/page_editor.h"
#include "links/picture_links.h"
#include "links/scan_links.h"
#include "rules/sentinels.h"

namespace quillary {

void PrintTo(const Text& text, std::ostream* out) {
  for (const char16_t unit : text) *out << (unit < 0x80 ? static_cast<char>(unit) : '?');
}

namespace {

using Scan = void (*)(RtfToHtmlState&, TextView);
using Repair = Text (*)(TextView);

/// Pages glued from pieces, some of them said again later on the page.
class Pages {
 public:
  Pages(std::vector<Text> pieces, unsigned seed) : pieces_(std::move(pieces)), random_(seed) {}

  Text Next(std::size_t most_pieces = 40) {
    Text page;
    const std::size_t count = Below(most_pieces) + 1;
    // Few different pieces make pages on which things come together.
    const std::size_t different = Below(pieces_.size()) + 2;
    const std::size_t first = Below(pieces_.size());
    while (page.size() < 4000 && Below(count) + 1 < count) {
      if (!page.empty() && Below(12) == 0) {
        const std::size_t begin = Below(page.size());
        page += page.substr(begin, Below(60));
      } else {
        page += pieces_[(first + Below(different)) % pieces_.size()];
      }
    }
    return page;
  }

  std::size_t Below(std::size_t limit) { return random_() % limit; }

 private:
  std::vector<Text> pieces_;
  std::mt19937 random_;
};

RtfToHtmlState Loaded() {
  RtfToHtmlState state;
  links::LoadLinkPrefixes(state);
  links::LoadLinkDelimiters(state);
  return state;
}

// Pieces are written in one text, with a pilcrow between them.
std::vector<Text> Split(TextView text) {
  std::vector<Text> pieces;
  for (std::size_t from = 0; from <= text.size();) {
    const std::size_t end = std::min(text.find(u'¶', from), text.size());
    pieces.emplace_back(text.substr(from, end - from));
    from = end + 1;
  }
  return pieces;
}

// The pieces among all entries of the lists.
std::vector<Text> Pieces(const RtfToHtmlState& state, TextView text) {
  const std::vector<Text> more = Split(text);
  std::vector<Text> pieces = more;
  std::mt19937 random(7);
  for (std::int32_t i = 1; i <= state.LinkPrefixes.upper(); ++i) {
    pieces.push_back(state.LinkPrefixes[i]);
    if (i % 3 == 0) pieces.insert(pieces.end(), more.begin(), more.end());
  }
  for (std::int32_t i = 1; i <= state.LinkDelimiters.upper(); ++i) pieces.push_back(state.LinkDelimiters[i]);
  std::shuffle(pieces.begin(), pieces.end(), random);
  return pieces;
}

std::vector<Text> Entries(const TextList& list) {
  std::vector<Text> entries;
  for (std::int32_t i = 1; i <= list.last_set(); ++i) entries.push_back(list[i]);
  return entries;
}

void ExpectSameScan(Scan fast, Scan reference, const RtfToHtmlState& start, const Text& page) {
  RtfToHtmlState actual = start;
  RtfToHtmlState expected = start;
  actual.HtmlOut.Assign(page);
  expected.HtmlOut.Assign(page);
  const bool done = Attempt([&] { fast(actual, page); });
  ASSERT_EQ(done, Attempt([&] { reference(expected, page); })) << testing::PrintToString(page);
  ASSERT_EQ(actual.HtmlOut.text(), expected.HtmlOut.text()) << testing::PrintToString(page);
  ASSERT_EQ(Entries(actual.FoundLinks), Entries(expected.FoundLinks)) << testing::PrintToString(page);
  ASSERT_EQ(Entries(actual.FoundEmails), Entries(expected.FoundEmails)) << testing::PrintToString(page);
}

constexpr TextView kWebPieces =
    u"www.a¶www.¶WWW.b.c¶http://x¶Http://u:p@h.c¶ftp://w.e:81@h.i¶news:¶a¶.¶@¶.¶ &lt;¶"
    u"&lt;¶&gt;¶&gt; ¶ &lt;www.a&gt; ¶www.a &lt;t&gt; ¶WWW.A &LT;T&GT; ¶www.a)&lt;t&gt; ¶"
    u"www.&lt;&lt;t&gt; ¶ ¶.gif¶.png¶<a href=\"¶\">¶</a>¶<br>¶c:\\x\\y¶\\\\s\\d¶\u017f¶"
    u"k\u212a¶file:\\\\c¶&lt;http://aa.gif&gt;¶&lt;HTTP://AB&gt;¶b@c.d¶"
    u"abcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrstuvwxyz";

TEST(PageEditor, IsAfterEachChangeWhatATextWouldBe) {
  std::mt19937 random(5);
  const auto below = [&](std::size_t end) { return random() % end; };
  for (int round = 0; round < 200; ++round) {
    Text text(below(60), u'x');
    for (char16_t& unit : text) unit = static_cast<char16_t>(u'a' + below(26));
    links::PageEditor page(text);
    for (int change = 0; change < 20; ++change) {
      const std::size_t start = below(text.size() + 1);
      const std::size_t count = below(text.size() - start + 1);
      const Text with(below(12), static_cast<char16_t>(u'A' + change));
      page.Replace(start, count, with);
      text.replace(start, count, with);
      ASSERT_EQ(page.Size(), text.size());
      const std::size_t from = below(text.size() + 1);
      const Text piece = text.substr(from, below(text.size() + 1));
      ASSERT_EQ(page.Copy(from, piece.size()), piece);
      ASSERT_TRUE(page.StandsAt(from, piece, Compare::Binary));
      if (change % 4 == 0) {
        ASSERT_EQ(page.From(from), text.substr(from));
      }
    }
    ASSERT_EQ(page.Take(), text);
  }
}

TEST(ScanLinks, AgreesWithItsReferenceImplementation) {
  const RtfToHtmlState state = Loaded();
  Pages pages(Pieces(state, kWebPieces), 1);
  for (int i = 0; i < 10000 && !HasFatalFailure(); ++i) {
    ExpectSameScan(links::ScanLinks, links_reference::ScanLinks, state, pages.Next());
  }
}

TEST(ScanLinks, AgreesWithItsReferenceImplementationOnLabels) {
  const RtfToHtmlState state = Loaded();
  Pages pages(Split(u"www.a¶www.a ¶ ¶&lt;t&gt;¶ &lt;t&gt; ¶&lt;T&gt; ¶www.A &lt;t&gt; ¶www.a.&lt;t&gt; ¶"
                    u"www.a;&lt;t&gt; ¶&gt; ¶&lt;¶&lt;www.a.gif&gt;¶&lt;www.aaaaaaaaaaaaaaaaaaaa.gif&gt;¶"
                    u"www.x@y.z¶http://¶x"),
              2);
  for (int i = 0; i < 10000 && !HasFatalFailure(); ++i) {
    ExpectSameScan(links::ScanLinks, links_reference::ScanLinks, state, pages.Next());
  }
}

// The lists are state like any other: what stands in them decides.
TEST(ScanLinks, AgreesWithItsReferenceImplementationOnOtherLists) {
  constexpr struct {
    TextView prefix, first, second;
  } kLists[] = {{u"w w.", u" ", u"&gt;"}, {u"ww", u"]", u"]]"}, {u"w &lt;t&gt; w", u" ", u"]]"}};
  for (const auto& [prefix, first, second] : kLists) {
    RtfToHtmlState state;
    links::LoadBracketPrefixes(state);
    state.LinkPrefixes.Set(state.LinkPrefixes.upper(), Text(prefix));
    state.LinkDelimiters.Size(6);
    state.LinkDelimiters.Set(1, Text(first));
    state.LinkDelimiters.Set(2, Text(second));
    for (std::int32_t i = 3; i <= 6; ++i) state.LinkDelimiters.Set(i, u"|");
    Pages pages(
        Split(u"w w.¶ww¶ ¶&lt;file://¶&lt;¶&gt;¶&gt; ¶|¶]¶abc¶.¶ &lt;t&gt; ¶ww x &lt;t&gt; ¶w &lt;t&gt; wx"),
        3);
    for (int i = 0; i < 3000 && !HasFatalFailure(); ++i) {
      ExpectSameScan(links::ScanLinks, links_reference::ScanLinks, state, pages.Next());
    }
  }
}

TEST(ScanBracketLinks, AgreesWithItsReferenceImplementation) {
  RtfToHtmlState state;
  links::LoadBracketPrefixes(state);
  links::LoadBracketDelimiters(state);
  Pages pages(Pieces(state, u"a¶b.c¶@¶.¶&LT;FILE:¶&GT;¶&gt¶;¶<br>¶ "), 4);
  for (int i = 0; i < 10000 && !HasFatalFailure(); ++i) {
    ExpectSameScan(links::ScanBracketLinks, links_reference::ScanBracketLinks, state, pages.Next());
  }
}

constexpr TextView kMailPieces =
    u"@¶.¶-¶a¶b.c¶a@b.c¶A@b.c¶&lt;¶&gt;¶&lt;mailto:¶&lt;mailto:a@b.c&gt;¶"
    u" &lt;mailto:a@b.c&gt;¶mailto:¶?¶#¶$¶,¶:¶=¶&¶+¶ ¶<br>¶~¶%¶/¶x,a@b.c¶\u00de¶\u017d";

TEST(ScanEmailAddresses, AgreesWithItsReferenceImplementation) {
  const RtfToHtmlState state = Loaded();
  Pages pages(Pieces(state, kMailPieces), 5);
  Pages dense(Split(kMailPieces), 6);
  for (int i = 0; i < 10000 && !HasFatalFailure(); ++i) {
    ExpectSameScan(links::ScanEmailAddresses, links_reference::ScanEmailAddresses, state, pages.Next());
    ExpectSameScan(links::ScanEmailAddresses, links_reference::ScanEmailAddresses, state, dense.Next(10));
  }
}

TEST(ExtractEmailAddress, AgreesWithItsReferenceImplementation) {
  Pages pages(Split(u"@¶@¶@¶.¶.¶.¶-¶a¶b¶c.d¶?¶#¶$¶!¶,¶:¶ ¶&¶\r\n¶}¶£¶;¶^¶\\¶/¶'¶\"¶`¶<¶>¶(¶)¶|¶+¶=¶%¶~"), 8);
  for (int i = 0; i < 20000; ++i) {
    const Text word = pages.Next(14);
    ASSERT_EQ(links::ExtractEmailAddress(word), links_reference::ExtractEmailAddress(word))
        << testing::PrintToString(word);
    Text fast = word;
    Text reference = word;
    ASSERT_EQ(links::StripEmailFringe(fast), links_reference::StripEmailFringe(reference))
        << testing::PrintToString(word);
    ASSERT_EQ(fast, reference);
  }
}

TEST(Repairs, AgreeWithTheirReferenceImplementations) {
  const std::pair<Repair, Repair> repairs[] = {
      {links::RepairLabelLinks, links_reference::RepairLabelLinks},
      {links::RepairLabelAnchors, links_reference::RepairLabelAnchors},
      {links::RepairPictureLinks, links_reference::RepairPictureLinks}};
  Pages pages(Split(u"<u>¶<U>¶</u>¶<font COLOR=\"#0000ff\">¶<font color=\"#0000ff\">¶<font SIZE=\"2\">¶L¶"
                    u"l ¶ ¶ &lt;¶&lt;¶&gt;¶<a href=\"t.u\">t</a>¶&lt;<a href=\"t.u\">t</a>&gt;</u>¶"
                    u" &LT;<A href=\"t.u\">t</a>&gt;</u>¶&gt;</u><font COLOR=\"#000000\">¶"
                    u" &lt;t.u&gt;</u><font COLOR=\"#000000\">¶ &lt;T.u&gt;</u><font color=\"#000000\">¶"
                    u" <img border=\"0\" src=\"f.gif\"></u>¶ <img border=\"0\" src=\" g.jpeg \"></u>¶"
                    u" <img border=\"0\" src=\"h.png\">¶<u>L &lt;t.u&gt;¶"
                    u"<u>L &lt;<a href=\"t.u\">t</a>&gt;</u>¶<u>L <img border=\"0\" src=\"f.gif\"></u>¶"
                    u"<br>¶&g¶&l"),
              9);
  int changed = 0;
  for (int i = 0; i < 10000; ++i) {
    const Text page = pages.Next(40);
    for (const auto& [fast, reference] : repairs) {
      Text actual;
      Text expected;
      const bool done = Attempt([&, run = fast] { actual = run(page); });
      ASSERT_EQ(done, Attempt([&, run = reference] { expected = run(page); }))
          << testing::PrintToString(page);
      ASSERT_EQ(actual, expected) << testing::PrintToString(page);
      changed += done && actual != page;
    }
  }
  EXPECT_GT(changed, 3000);
}

Text Repeat(std::size_t units, const Text& piece) {
  Text text;
  while (text.size() < units) text += piece;
  return text;
}

struct Outcome {
  TextView page;
  TextView html;
};

void ExpectOutcomes(const RtfToHtmlState& start, std::initializer_list<Scan> scans,
                    std::initializer_list<Outcome> outcomes) {
  for (const auto& [page, html] : outcomes) {
    RtfToHtmlState state = start;
    state.HtmlOut.Assign(Text(page));
    for (const Scan scan : scans) scan(state, Text(state.HtmlOut.text()));
    EXPECT_EQ(state.HtmlOut.text(), html) << testing::PrintToString(Text(page));
  }
}

TEST(ScanLinks, MakesAnchorsAndImages) {
  const Text long_link = u"http://" + Text(193, u'x');
  ExpectOutcomes(
      Loaded(), {links::ScanLinks},
      {{u"see www.example.org.<br>", u"see <a href=\"http://www.example.org\">www.example.org</a>.<br>"},
       {u"HTTP://EXAMPLE.ORG<br>", u"<a href=\"HTTP://EXAMPLE.ORG\">HTTP://EXAMPLE.ORG</a><br>"},
       {u"c:\\my files\\a.txt<br>", u"<a href=\"file://c:\\my\">c:\\my</a> files\\a.txt<br>"},
       {u"file:\\\\srv\\a, b<br>", u"<a href=\"file:\\\\srv\\a,\">file:\\\\srv\\a,</a> b<br>"},
       {u"a:\\ and \\\\x or", u"a:\\ and \\\\x or"},
       {u"ftp://user@example.org<br>", u"ftp://user@example.org<br>"},
       {u"&lt;http://e.org/a.gif&gt; end", u"<img border=\"0\" src=\"http://e.org/a.gif\"> end"},
       {u"&lt;http://e.org/a.GIF&gt; end",
        u"&lt;<a href=\"http://e.org/a.GIF\">http://e.org/a.GIF</a>&gt; end"},
       {u"see www.example.org &lt;http://www.example.org/a&gt; and",
        u"see <a href=\"http://www.example.org/a\">www.example.org</a>and"},
       {Text(long_link + u"yyy<br>"),
        Text(u"<a href=\"" + long_link + u"\">" + long_link + u"</a>yyy<br>")}});
}

TEST(ScanLinks, HidesAtSignsFromTheMailScan) {
  RtfToHtmlState state = Loaded();
  links::ScanLinks(state, u"http://me:pw@e.org<br>");
  const Text hidden = Text(u"http://me:pw").append(sentinels::at_sign).append(u"e.org");
  EXPECT_EQ(state.HtmlOut.text(), u"<a href=\"" + hidden + u"\">" + hidden + u"</a><br>");
  EXPECT_EQ(state.FoundLinks[1], u"http://me:pw@e.org");
}

TEST(Scans, StopAtTheirLimit) {
  for (const auto& [scan, word] : {std::pair<Scan, TextView>{links::ScanLinks, u"www.a "},
                                   std::pair<Scan, TextView>{links::ScanEmailAddresses, u"b@c.d "}}) {
    RtfToHtmlState state = Loaded();
    scan(state, u"x " + Repeat(2000 * word.size(), Text(word)) + u"end.");
    const TextList& found = state.FoundLinks.sized() ? state.FoundLinks : state.FoundEmails;
    EXPECT_EQ(found.last_set(), 1996);
    EXPECT_EQ(found[1995], Trim(word));
    EXPECT_EQ(found[1996], u"");
    EXPECT_TRUE(
        state.HtmlOut.text().ends_with(Text(u"</a> ") + Repeat(5 * word.size(), Text(word)) + u"end."));
  }
}

TEST(ScanEmailAddresses, MakesAnchorsOnce) {
  const Text anchor = u"<a href=\"mailto:name@example.org\">name@example.org</a>";
  ExpectOutcomes(
      Loaded(), {links::ScanEmailAddresses},
      {{u"to name@example.org. And", Text(u"to " + anchor + u". And")},
       {u"to x@y and x@-y.z or", u"to x@y and x@-y.z or"},
       {u"<b>name@example.org &lt;mailto:name@example.org&gt; or else", Text(u"<b>" + anchor + u" or else")},
       {u"name@example.org is where the page begins",
        u"n<a href=\"mailto:ame@example.org\">ame@example.org</a> is where the page begins"}});
}

TEST(ScanBracketLinks, LinksOnlyWhatStandsInBrackets) {
  RtfToHtmlState state;
  links::LoadBracketPrefixes(state);
  links::LoadBracketDelimiters(state);
  ExpectOutcomes(state, {links::ScanBracketLinks, links::ScanBracketLinks},
                 {{u"www.example.org &lt;mailto:a@b.c&gt; end",
                   u"www.example.org <a href=\"mailto:a@b.c\">a@b.c</a> end"},
                  {u"&lt;mailto:a@b.c&gt;&lt;file:c:\\x y&gt; end",
                   u"<a href=\"mailto:a@b.c\">a@b.c</a><a href=\"file://c:\\x y\">c:\\x y</a> end"}});
}

// Everything that link recognition does with a page.
// In processor time, so that a busy machine does not count.
double MillisecondsFor(const Text& page) {
  const std::clock_t begin = std::clock();
  RtfToHtmlState state = Loaded();
  links::ScanLinks(state, page);
  links::ScanEmailAddresses(state, Text(state.HtmlOut.text()));
  links::LoadBracketPrefixes(state);
  links::LoadBracketDelimiters(state);
  links::ScanBracketLinks(state, page);
  links::RepairLabelLinks(page);
  Attempt([&] { links::RepairLabelAnchors(page); });
  Attempt([&] { links::RepairPictureLinks(page); });
  return 1000.0 * static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

// Bad input costs no more per unit on a long page than on a short one. Each
// page runs through everything that link recognition does.
TEST(Links, CostGrowsWithThePage) {
  const Text sentinels = [] {
    Text text;
    for (const TextView part : {sentinels::at_sign, sentinels::bullet, sentinels::picture_start,
                                sentinels::picture_end, sentinels::path_backslash, sentinels::hidden_tab}) {
      text += part;
    }
    return text;
  }();
  std::vector<Text> traps = Split(
      u"<¶@¶http://¶&lt;¶\\¶a:\\ ¶.¶a@b.c ¶a@b.¶www.a)&lt;¶www.a)&lt;x&gt; ¶"
      u"www.a &lt;x&gt; ¶<u>¶<u>&lt;¶</a>&gt;</u>¶&gt;</u><font COLOR=\"#000000\">¶"
      u"<u>L &lt;t.u&gt;</u><font COLOR=\"#000000\">¶<u>L &lt;<a href=\"t\">t</a>&gt;</u>¶"
      u"<u>L <img border=\"0\" src=\"f.gif\"></u>¶x &lt;www.a&gt; www.b &lt;www.a&gt; ¶"
      u"a,b@c ");
  traps.push_back(sentinels);
  for (const Text& trap : traps) {
    const double brief = MillisecondsFor(Repeat(100000, trap));
    const double whole = MillisecondsFor(Repeat(1000000, trap));
    EXPECT_LT(whole, 50 * brief + 500) << testing::PrintToString(trap);
  }
}

}  // namespace
}  // namespace quillary

// The fast scans of links against their slow twins, and what a page of nothing
// but traps costs them.
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <random>

#include "links/bracket_links.h"
#include "links/email_addresses.h"
#include "links/label_links.h"
#include "links/link_lists.h"
#include "links/picture_links.h"
#include "links/scan_links.h"
#include "links_twins.h"
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

std::vector<Text> Pieces(const RtfToHtmlState& state, std::initializer_list<TextView> more) {
  std::vector<Text> pieces(more.begin(), more.end());
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

void ExpectSameScan(Scan fast, Scan slow, const RtfToHtmlState& start, const Text& page) {
  RtfToHtmlState quick = start;
  RtfToHtmlState judged = start;
  quick.HtmlOut = judged.HtmlOut = page;
  const bool done = Attempt([&] { fast(quick, page); });
  ASSERT_EQ(done, Attempt([&] { slow(judged, page); })) << testing::PrintToString(page);
  ASSERT_EQ(quick.HtmlOut, judged.HtmlOut) << testing::PrintToString(page);
  ASSERT_EQ(Entries(quick.FoundLinks), Entries(judged.FoundLinks)) << testing::PrintToString(page);
  ASSERT_EQ(Entries(quick.FoundEmails), Entries(judged.FoundEmails)) << testing::PrintToString(page);
}

constexpr std::initializer_list<TextView> web_pieces = {
    u"www.a",
    u"www.",
    u"WWW.b.c",
    u"http://x",
    u"Http://u:p@h.c",
    u"ftp://w.e:81@h.i",
    u"news:",
    u"a",
    u".",
    u"@",
    u".",
    u" &lt;",
    u"&lt;",
    u"&gt;",
    u"&gt; ",
    u" &lt;www.a&gt; ",
    u"www.a &lt;t&gt; ",
    u"WWW.A &LT;T&GT; ",
    u"www.a)&lt;t&gt; ",
    u"www.&lt;&lt;t&gt; ",
    u" ",
    u".gif",
    u".png",
    u"<a href=\"",
    u"\">",
    u"</a>",
    u"<br>",
    u"c:\\x\\y",
    u"\\\\s\\d",
    u"\u017f",
    u"k\u212a",
    u"file:\\\\c",
    u"&lt;http://aa.gif&gt;",
    u"&lt;HTTP://AB&gt;",
    u"b@c.d",
    u"abcdefghijklmnopqrstuvwxyzabcdefghijklmnopqrstuvwxyz"};

TEST(ScanLinks, AgreesWithItsTwin) {
  const RtfToHtmlState state = Loaded();
  Pages pages(Pieces(state, web_pieces), 1);
  for (int i = 0; i < 10000 && !HasFatalFailure(); ++i) {
    ExpectSameScan(links::ScanLinks, links_twins::ScanLinks, state, pages.Next());
  }
}

TEST(ScanLinks, AgreesWithItsTwinOnLabels) {
  const RtfToHtmlState state = Loaded();
  Pages pages({u"www.a", u"www.a ", u" ", u"&lt;t&gt;", u" &lt;t&gt; ", u"&lt;T&gt; ", u"www.A &lt;t&gt; ",
               u"www.a.&lt;t&gt; ", u"www.a;&lt;t&gt; ", u"&gt; ", u"&lt;", u"&lt;www.a.gif&gt;",
               u"&lt;www.aaaaaaaaaaaaaaaaaaaa.gif&gt;", u"www.x@y.z", u"http://", u"x"},
              2);
  for (int i = 0; i < 10000 && !HasFatalFailure(); ++i) {
    ExpectSameScan(links::ScanLinks, links_twins::ScanLinks, state, pages.Next());
  }
}

// The lists are state like any other: what stands in them decides.
TEST(ScanLinks, AgreesWithItsTwinOnOtherLists) {
  for (const bool blank_ends : {true, false}) {
    RtfToHtmlState state;
    links::LoadBracketPrefixes(state);
    state.LinkPrefixes.Set(2, u"w w.");
    if (!blank_ends) state.LinkPrefixes.Set(2, u"ww");
    state.LinkDelimiters.Size(6);
    state.LinkDelimiters.Set(1, blank_ends ? u" " : u"]");
    state.LinkDelimiters.Set(2, u"&gt;");
    for (std::int32_t i = 3; i <= 6; ++i) state.LinkDelimiters.Set(i, u"|");
    Pages pages({u"w w.", u"ww", u" ", u"&lt;file://", u"&lt;", u"&gt;", u"&gt; ", u"|", u"]", u"abc", u".",
                 u" &lt;t&gt; "},
                3);
    for (int i = 0; i < 3000 && !HasFatalFailure(); ++i) {
      ExpectSameScan(links::ScanLinks, links_twins::ScanLinks, state, pages.Next());
    }
  }
}

TEST(ScanBracketLinks, AgreesWithItsTwin) {
  RtfToHtmlState state;
  links::LoadBracketPrefixes(state);
  links::LoadBracketDelimiters(state);
  Pages pages(Pieces(state, {u"a", u"b.c", u"@", u".", u"&LT;FILE:", u"&GT;", u"&gt", u";", u"<br>", u" "}),
              4);
  for (int i = 0; i < 10000 && !HasFatalFailure(); ++i) {
    ExpectSameScan(links::ScanBracketLinks, links_twins::ScanBracketLinks, state, pages.Next());
  }
}

constexpr std::initializer_list<TextView> mail_pieces = {u"@",
                                                         u".",
                                                         u"-",
                                                         u"a",
                                                         u"b.c",
                                                         u"a@b.c",
                                                         u"A@b.c",
                                                         u"&lt;",
                                                         u"&gt;",
                                                         u"&lt;mailto:",
                                                         u"&lt;mailto:a@b.c&gt;",
                                                         u" &lt;mailto:a@b.c&gt;",
                                                         u"mailto:",
                                                         u"?",
                                                         u"#",
                                                         u"$",
                                                         u",",
                                                         u":",
                                                         u"=",
                                                         u"&",
                                                         u"+",
                                                         u" ",
                                                         u"<br>",
                                                         u"~",
                                                         u"%",
                                                         u"/",
                                                         u"x,a@b.c",
                                                         u"\u00de",
                                                         u"\u017d"};

TEST(ScanEmailAddresses, AgreesWithItsTwin) {
  const RtfToHtmlState state = Loaded();
  Pages pages(Pieces(state, mail_pieces), 5);
  Pages dense(std::vector<Text>(mail_pieces.begin(), mail_pieces.end()), 6);
  for (int i = 0; i < 10000 && !HasFatalFailure(); ++i) {
    ExpectSameScan(links::ScanEmailAddresses, links_twins::ScanEmailAddresses, state, pages.Next());
    ExpectSameScan(links::ScanEmailAddresses, links_twins::ScanEmailAddresses, state, dense.Next(10));
  }
}

TEST(ExtractEmailAddress, AgreesWithItsTwin) {
  Pages pages({u"@", u"@", u".", u".", u"-", u"a",    u"b", u"c.d", u"?", u"#", u"$",
               u"!", u",", u":", u" ", u"&", u"\r\n", u"}", u"£",   u";", u"^"},
              8);
  for (int i = 0; i < 10000; ++i) {
    const Text word = pages.Next(14);
    ASSERT_EQ(links::ExtractEmailAddress(word), links_twins::ExtractEmailAddress(word))
        << testing::PrintToString(word);
    Text fast = word;
    Text slow = word;
    ASSERT_EQ(links::StripEmailFringe(fast), links_twins::StripEmailFringe(slow))
        << testing::PrintToString(word);
    ASSERT_EQ(fast, slow);
  }
}

TEST(Repairs, AgreeWithTheirTwins) {
  const std::pair<Repair, Repair> repairs[] = {{links::RepairLabelLinks, links_twins::RepairLabelLinks},
                                               {links::RepairLabelAnchors, links_twins::RepairLabelAnchors},
                                               {links::RepairPictureLinks, links_twins::RepairPictureLinks}};
  Pages pages({u"<u>",
               u"<U>",
               u"</u>",
               u"<font COLOR=\"#0000ff\">",
               u"<font color=\"#0000ff\">",
               u"<font SIZE=\"2\">",
               u"L",
               u"l ",
               u" ",
               u" &lt;",
               u"&lt;",
               u"&gt;",
               u"<a href=\"t.u\">t</a>",
               u"&lt;<a href=\"t.u\">t</a>&gt;</u>",
               u" &LT;<A href=\"t.u\">t</a>&gt;</u>",
               u"&gt;</u><font COLOR=\"#000000\">",
               u" &lt;t.u&gt;</u><font COLOR=\"#000000\">",
               u" &lt;T.u&gt;</u><font color=\"#000000\">",
               u" <img border=\"0\" src=\"f.gif\"></u>",
               u" <img border=\"0\" src=\" g.jpeg \"></u>",
               u" <img border=\"0\" src=\"h.png\">",
               u"<u>L &lt;t.u&gt;",
               u"<u>L &lt;<a href=\"t.u\">t</a>&gt;</u>",
               u"<u>L <img border=\"0\" src=\"f.gif\"></u>",
               u"<br>",
               u"&g",
               u"&l"},
              9);
  int changed = 0;
  for (int i = 0; i < 10000; ++i) {
    const Text page = pages.Next(40);
    for (const auto& [fast, slow] : repairs) {
      Text quick;
      Text judged;
      const bool done = Attempt([&, run = fast] { quick = run(page); });
      ASSERT_EQ(done, Attempt([&, run = slow] { judged = run(page); })) << testing::PrintToString(page);
      ASSERT_EQ(quick, judged) << testing::PrintToString(page);
      changed += done && quick != page;
    }
  }
  EXPECT_GT(changed, 3000);
}

Text Repeat(std::size_t units, const std::function<Text(std::size_t)>& piece) {
  Text text;
  for (std::size_t i = 0; text.size() < units; ++i) text += piece(i);
  return text;
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
  const std::vector<Text> traps = {u"<",
                                   u"@",
                                   u"http://",
                                   u"&lt;",
                                   u"\\",
                                   u"a:\\ ",
                                   u".",
                                   u"a@b.c ",
                                   u"a@b.",
                                   u"www.a)&lt;",
                                   u"www.a)&lt;x&gt; ",
                                   u"www.a &lt;x&gt; ",
                                   u"<u>",
                                   u"<u>&lt;",
                                   u"</a>&gt;</u>",
                                   u"&gt;</u><font COLOR=\"#000000\">",
                                   u"<u>L &lt;t.u&gt;</u><font COLOR=\"#000000\">",
                                   u"<u>L &lt;<a href=\"t\">t</a>&gt;</u>",
                                   u"<u>L <img border=\"0\" src=\"f.gif\"></u>",
                                   u"x &lt;www.a&gt; www.b &lt;www.a&gt; ",
                                   u"a,b@c ",
                                   sentinels};
  for (const Text& trap : traps) {
    const Text page = Repeat(1000000, [&](std::size_t) { return trap; });
    const auto begin = std::chrono::steady_clock::now();
    RtfToHtmlState state = Loaded();
    state.HtmlOut = page;
    links::ScanLinks(state, page);
    links::ScanEmailAddresses(state, Text(state.HtmlOut));
    links::LoadBracketPrefixes(state);
    links::LoadBracketDelimiters(state);
    links::ScanBracketLinks(state, page);
    Attempt([&] { links::RepairLabelAnchors(page); });
    links::RepairLabelLinks(page);
    Attempt([&] { links::RepairPictureLinks(page); });
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - begin;
    RecordProperty("trap", testing::PrintToString(trap));
    std::fprintf(stderr, "%7.1f ms %s\n", time.count(), testing::PrintToString(trap).c_str());
    EXPECT_LT(time.count(), 3000) << testing::PrintToString(trap);
  }
}

}  // namespace
}  // namespace quillary

// Style sheets: the fast way of applying them against the slow one, which files a page can
// read, and what large sheets and pages cost.
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <random>

#include "stylesheet/style_sheets.h"
#include "text/encodings.h"

namespace quillary::stylesheet {
namespace {

Apartment WithSheet() {
  Apartment apartment;
  apartment.html_to_rtf.StyleSheets.Size(0);
  apartment.html_to_rtf.StyleSheets.Set(0, {});
  return apartment;
}

// One rule after the other, each tag written before the next is looked for.
void ApplyOneByOne(Apartment& apartment, Text& page) {
  const StyleSheet& sheet = apartment.html_to_rtf.StyleSheets[0];
  const auto each = [](const List<StyleRule>& rules, auto&& apply) {
    for (std::int32_t i = 0; rules.sized() && i <= rules.upper(); ++i) {
      const StyleRule& rule = rules[i];
      apply(rule.Selector, Joined({u"<FONT", rule.Colour.empty() ? u"" : u" COLOR=\"", rule.Colour,
                                   rule.Colour.empty() ? u">" : u"\">"}));
    }
  };
  const auto of_attribute = [&](TextView name) {
    return [&page, &apartment, name](const Text& selector, const Text& tag) {
      if (!selector.empty()) WrapByAttribute(apartment, page, selector, tag, name);
    };
  };
  const auto of_tags = [&](bool compound) {
    return [&page, &apartment, compound](const Text& selector, const Text& tag) {
      if ((selector.find_first_of(u".#") != Text::npos) == compound)
        WrapTagRule(apartment, page, selector, tag);
    };
  };
  each(sheet.ClassRules, of_attribute(u"CLASS"));
  each(sheet.IdRules, of_attribute(u"ID"));
  each(sheet.TagRules, of_tags(true));
  each(sheet.TagRules, of_tags(false));
}

TEST(Sheets, AreAppliedAsIfOneByOne) {
  const std::vector<TextView> pieces = {u"<div class=ab>",
                                        u"<DIV CLASS =\"AB\" id=i>",
                                        u"</div>",
                                        u"</div",
                                        u"<b class=ab x>",
                                        u"</b>",
                                        u"<b >",
                                        u"<bx class=a>",
                                        u"</B >",
                                        u"ab",
                                        u">",
                                        u"<",
                                        u" ",
                                        u"<div>",
                                        u"<f class=ab>",
                                        u"</f>",
                                        u"<font>",
                                        u"</font>",
                                        u"<font class=ab>",
                                        u"< b</b>",
                                        u"i=ab"};
  const std::vector<TextView> selectors = {u".ab",  u".a",     u"#i", u"b",  u"div.ab", u"b#i",  u"f",
                                           u"font", u".i > b", u"b>", u"bx", u"div",    u".ab>", u"fo"};
  std::mt19937 random(1);
  for (int i = 0; i < 20000; ++i) {
    Apartment apartment = WithSheet();
    for (std::size_t count = random() % 5; count > 0; --count) {
      const TextView declarations[] = {u"color:red", u"", u"color:ab"};
      AddStyleRule(apartment, selectors[random() % selectors.size()], declarations[random() % 3]);
    }
    Text page;
    for (std::size_t count = random() % 20; count > 0; --count) page += pieces[random() % pieces.size()];
    Text expected = page;
    ApplyOneByOne(apartment, expected);
    Text styled = page;
    ApplyStyleRules(apartment, styled);
    ASSERT_EQ(ToUtf8(styled), ToUtf8(expected)) << ToUtf8(page);
  }
}

TEST(Sheets, AreLinkedFromTheFolderOnly) {
  namespace fs = std::filesystem;
  const fs::path top = fs::path(testing::TempDir()) / "linked_sheets";
  fs::remove_all(top);
  fs::create_directories(top / "in" / "deeper");
  std::ofstream(top / "in" / "a.css") << "b{color:#111111}";
  std::ofstream(top / "in" / "deeper" / "b.css") << "b{color:#111111}";
  std::ofstream(top / "out.css") << "i{color:#222222}";
  fs::create_symlink(top / "out.css", top / "in" / "link.css");
  const Text folder = FromUtf8((top / "in").string());
  const auto reads = [&](TextView link) {
    Apartment apartment = WithSheet();
    CollectStyleSheets(apartment, Joined({u"<link rel=stylesheet type=text/css href=\"", link, u"\">"}),
                       folder);
    return apartment.html_to_rtf.StyleSheets[0].TagRules.sized();
  };
  for (const TextView link : {u"a.css", u"deeper\\b.css", u"deeper/../a.css"})
    EXPECT_TRUE(reads(link)) << ToUtf8(link);
  const Text absolute = u"file://" + FromUtf8((top / "out.css").string());
  for (const TextView link : {TextView(u"../out.css"), TextView(u"link.css"), TextView(u"none.css"),
                              TextView(u"..\\out.css"), TextView(u"deeper"), TextView(absolute)}) {
    EXPECT_FALSE(reads(link)) << ToUtf8(link);
  }
  // A folder that the host names may be read.
  Apartment apartment = WithSheet();
  apartment.services.files = platform::MakeFiles({top});
  CollectStyleSheets(apartment, u"<link rel=stylesheet type=text/css href=../out.css>", folder);
  EXPECT_TRUE(apartment.html_to_rtf.StyleSheets[0].TagRules.sized());
  fs::remove_all(top);
}

double Seconds(const auto& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

Text Repeated(TextView text, std::size_t times) {
  Text repeated;
  for (; times > 0; --times) repeated += text;
  return repeated;
}

// Bounds that only more than linear costs pass.
TEST(Sheets, CostNoMoreThanTheirLengthAndThePage) {
  Apartment apartment = WithSheet();
  Text page;
  for (int i = 0; page.size() < (std::size_t{1} << 20); ++i) {
    page +=
        Joined({u"<div class=k", Decimal(i % 100), u"><p class=c", Decimal(i % 400), u">text</p></div>\n"});
  }
  for (int i = 0; i < 250; ++i) {
    AddStyleRule(apartment, Joined({u".c", Decimal(i)}), u"color:red");
    AddStyleRule(apartment, Joined({u"div.k", Decimal(i)}), u"color:red");
  }
  EXPECT_LT(Seconds([&] { ApplyStyleRules(apartment, page); }), 5);

  Text names = Repeated(u"a,", 10000) + u"b{color:red}";
  Text large = Repeated(u"/* c */ p { color: red }\n", 100000);
  Text open = u"p{color:red}/*" + Text(std::size_t{10} << 20, u'*');
  for (Text* sheet : {&names, &large, &open}) {
    EXPECT_LT(Seconds([&] { ParseStyleRules(apartment, *sheet); }), 5);
  }
  Text hidden = Repeated(u"<!--", 500000) + Repeated(u"<!--x-->", 500000);
  EXPECT_LT(Seconds([&] { StripStyleBlocks(hidden); }), 5);
  EXPECT_THROW(
      {
        Text long_value = Repeated(u"a,", 10000) + u"{font-family:" + Text(1000000, u'x') + u"}";
        ParseStyleRules(apartment, long_value);
      },
      LimitReached);
}

}  // namespace
}  // namespace quillary::stylesheet

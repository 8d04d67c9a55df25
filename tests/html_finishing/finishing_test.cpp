// Finishing of the page: the rewriting of font tags and the walk over table
// blocks against reference implementations that take every turn over the whole
// page, the failures that leave them, and their cost.
#include <gtest/gtest.h>

#include <ctime>
#include <random>

#include "html_finishing/font_tags.rules.h"
#include "rtf_to_html/page_repairs/form_layouts.h"
#include "rtf_to_html/page_repairs/form_layouts.rules.h"
#include "rtf_to_html/page_repairs/table_blocks.h"
#include "rtf_to_html/page_repairs/table_repairs.h"
#include "rules/run.h"

namespace quillary {
namespace {

using Random = std::mt19937;

Text Pick(Random& random, const std::vector<Text>& from) { return from[random() % from.size()]; }

Text PageOf(Random& random, const std::vector<Text>& pieces, std::size_t most) {
  Text page;
  for (std::size_t count = random() % most; count > 0; --count) page += Pick(random, pieces);
  return page;
}

// In processor time, so that a busy machine does not count.
double Seconds(const std::function<void()>& action) {
  const std::clock_t start = std::clock();
  action();
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

// ---- font tags, turn by turn ----

struct Names {
  std::vector<Text> faces;
  std::vector<Text> colours;
};

Text Attribute(const char16_t* name, const Text& value) { return Text(u" ") + name + u"=\"" + value + u"\""; }
Text Tag(const Text& attributes, const Text& end) { return u"<font" + attributes + end; }

class ReferenceSpans {
 public:
  static Text Run(Text page, const Names& names) {
    const std::vector<Text> none(1);
    for (int s = 0; s <= 30; ++s) {
      const Text size = Decimal(s);
      for (const Text& colour : names.colours.empty() ? none : names.colours) {
        for (const Text& face : names.faces) Turn(page, size, colour, face, !names.colours.empty());
      }
    }
    return page;
  }

 private:
  static void Turn(Text& page, const Text& size, const Text& colour, const Text& face, bool own) {
    const Text s = Attribute(u"SIZE", size);
    const Text f = Attribute(u"FACE", face);
    const Text c = Attribute(u"COLOR", colour);
    const Text black = Attribute(u"COLOR", u"#000000");
    const Text family = u"<span style=\"font-family:" + face;
    const Text points = u"; font-size:" + size + u"pt\">";
    for (const Text& order : {s + f, f + s}) {
      for (const char16_t* end : {u" >", u">"}) {
        if (own) ReplaceIn(page, Tag(order + c, end), family + u"; color:" + colour + points);
      }
      for (const char16_t* end : {u" >", u">"}) {
        ReplaceIn(page, Tag(order + black, end), family + u"; color:#000000" + points);
      }
    }
    ReplaceIn(page, Tag(f + s, u" >"), family + points);
    ReplaceIn(page, u"<strike>" + Tag(s + f, u" >"), family + points + u"<strike>");
    ReplaceIn(page, Tag(s + f, u" >"), family + points);
    for (const char16_t* end : {u" >", u">"}) {
      if (own) ReplaceIn(page, u"<strike>" + Tag(c, end), Tag(c, end) + u"<strike>");
    }
    for (const char16_t* end : {u" >", u">"}) {
      if (own) ReplaceIn(page, Tag(f + c, end), family + u"; color:" + colour + u">");
    }
    for (const char16_t* end : {u" >", u">"}) {
      ReplaceIn(page, Tag(f + black, end), family + u"; color:#000000>");
    }
  }
};

Text ReferenceRemoval(Text page, const Names& names) {
  const std::vector<Text> none(1);
  for (int size = 0; size <= 30; ++size) {
    const Text s = Attribute(u"SIZE", Decimal(size));
    for (const Text& colour : names.colours.empty() ? none : names.colours) {
      std::vector<Text> own;
      if (!names.colours.empty()) own = {Attribute(u"COLOR", colour), Attribute(u"COLOR", u"#" + colour)};
      std::vector<Text> all = own;
      all.push_back(Attribute(u"COLOR", u"#000000"));
      for (const Text& face : names.faces) {
        const Text f = Attribute(u"FACE", face);
        const auto drop = [&](const Text& attributes) {
          for (const char16_t* end : {u" >", u">"}) ReplaceIn(page, Tag(attributes, end), u"");
        };
        for (const Text& c : all) drop(s + f + c);
        for (const Text& c : all) drop(f + s + c);
        ReplaceIn(page, Tag(f + s, u" >"), u"");
        ReplaceIn(page, Tag(s + f, u" >"), u"");
        for (const Text& c : own) drop(f + c);
        for (const Text& c : own) drop(c);
        drop(f + all.back());
      }
    }
  }
  return page;
}

void SetNames(Apartment& apartment, const Names& names) {
  RtfToHtmlState& state = apartment.rtf_to_html;
  state.FontCount = static_cast<std::int64_t>(names.faces.size()) - 1;
  state.FontFaces.Size(state.FontCount);
  for (std::size_t i = 0; i < names.faces.size(); ++i) {
    state.FontFaces.Set(static_cast<std::int32_t>(i), u" " + names.faces[i] + u" ");
  }
  state.ColourCount = static_cast<std::int64_t>(names.colours.size());
  state.ColourTable.Size(state.ColourCount);
  for (std::size_t i = 0; i < names.colours.size(); ++i) {
    state.ColourTable.Set(static_cast<std::int32_t>(i) + 1, names.colours[i] + u" ");
  }
}

// The stages that ask for the names, alike in number in both chains; literal rules follow them.
Text RunFonts(const rules::Chain& chain, Apartment& apartment, Text page) {
  rules::Rewriting rewriting = StartRewriting(apartment, std::move(page));
  using namespace chains::ConvertFontsToSpans_stages;
  rules::RunStage(chain, full_shapes, rewriting, &apartment.rtf_to_html);
  rules::RunStage(chain, faces, rewriting, &apartment.rtf_to_html);
  return rewriting.Take();
}

// A face alone, alike in both reference implementations.
Text ReferenceFaces(Text page, const Names& names, bool spans) {
  for (const Text& face : names.faces) {
    for (const char16_t* end : {u">", u" >"}) {
      ReplaceIn(page, u"<font face=\"" + face + u"\"" + end,
                spans ? u"<span style=\"font-family:" + face + u"\">" : Text(), Compare::IgnoreCase);
    }
  }
  return page;
}

std::vector<Text> FontPieces(const Names& names) {
  std::vector<Text> faces = names.faces;
  faces.push_back(u"Other");
  std::vector<Text> colours = names.colours;
  colours.insert(colours.end(), {u"#000000", u"#00ff00", u"##0000ff"});
  std::vector<Text> pieces{u"x",       u" ",      u"<strike>", u"<strike>", u"<strike><strike>",
                           u"</font>", u"<span>", u"</span>",  u"<fo",      u"nt FACE=\"Arial\" SIZE=\"3\" >",
                           u"<",       u">",      u"<font"};
  for (const char16_t* size : {u"0", u"3", u"30", u"31", u"03", u" 3"}) {
    const Text s = Attribute(u"SIZE", size);
    for (const Text& face : faces) {
      const Text f = Attribute(u"FACE", face);
      for (const Text& order : {s + f, f + s, f, s}) {
        for (const char16_t* end : {u" >", u">", u"  >"}) {
          pieces.push_back(Tag(order, end));
          for (const Text& colour : colours) pieces.push_back(Tag(order + Attribute(u"COLOR", colour), end));
        }
      }
    }
  }
  for (int i = 0; i < 20; ++i) {
    for (const Text& colour : colours) {
      for (const char16_t* end : {u" >", u">"}) {
        pieces.push_back(Tag(Attribute(u"COLOR", colour), end));
        pieces.push_back(u"<strike>" + pieces.back());
      }
    }
  }
  return pieces;
}

class FontNamesOfPages : public testing::TestWithParam<Names> {};

TEST_P(FontNamesOfPages, GiveWhatTakingEveryTurnGives) {
  const Names& names = GetParam();
  const std::vector<Text> pieces = FontPieces(names);
  Apartment apartment;
  SetNames(apartment, names);
  Random random(20);
  int moved = 0;
  for (int i = 0; i < 80; ++i) {
    // Few kinds of pieces at a time, so that they meet.
    std::vector<Text> few{u"<strike>", u"<strike>"};
    for (int k = 0; k < 8; ++k) few.push_back(Pick(random, pieces));
    const Text page = PageOf(random, few, 20);
    const Text spans = ReferenceFaces(ReferenceSpans::Run(page, names), names, true);
    ASSERT_EQ(RunFonts(chains::ConvertFontsToSpans, apartment, page), spans) << i;
    ASSERT_EQ(RunFonts(chains::RemoveFontTags, apartment, page),
              ReferenceFaces(ReferenceRemoval(page, names), names, false))
        << i;
    if (Holds(page, u"<strike><font") && Holds(spans, u"><strike>")) ++moved;
  }
  EXPECT_GT(moved, 8);
}

INSTANTIATE_TEST_SUITE_P(
    Documents, FontNamesOfPages,
    testing::Values(Names{{u"Arial", u"Times New Roman", u""}, {u"#ff0000", u"0000ff"}},
                    Names{{u"Arial", u"Arial", u""}, {u"#000000", u"#ff0000", u"#ff0000"}},
                    Names{{u"Arial", u""}, {}},
                    // Names that end a value or make a tag of their own.
                    Names{{u"A\"b", u"Arial", u"a>b"}, {u"#ff0000"}},
                    Names{{u"<font SIZE=\"3\" FACE=\"Arial\" >", u"Arial"}, {u"<strike>", u"red"}}));

TEST(FontTags, RefuseACountWithoutItsListAndLeaveThePage) {
  Apartment apartment;
  rules::Rewriting page = StartRewriting(apartment, u"<font size=\"3\">x</font>");
  EXPECT_THROW(rules::Run(chains::ConvertFontsToSpans, page, apartment.rtf_to_html), Failure);
  EXPECT_THROW(rules::Run(chains::RemoveFontTags, page, apartment.rtf_to_html), Failure);
  EXPECT_EQ(page.text(), u"<font size=\"3\">x</font>");
}

TEST(FontTags, CostWhatThePageHoldsAndNotAllTurns) {
  Names names;
  for (int i = 0; i < 1000; ++i) names.faces.push_back(u"Face " + Decimal(i));
  for (int i = 0; i < 1000; ++i) names.colours.push_back(u"#" + Decimal(100000 + i));
  Apartment apartment;
  SetNames(apartment, names);
  Text page;
  for (std::size_t i = 0; i < 8000; ++i) {
    page += u"<strike><font COLOR=\"" + names.colours[i % 1000] + u"\" ><font FACE=\"" + names.faces[i / 8] +
            u"\" SIZE=\"" + Decimal(static_cast<std::int64_t>(i % 31)) + u"\" >words</font></font>";
  }
  // 31 million turns over a page of this length would take hours.
  EXPECT_LT(Seconds([&] { RunFonts(chains::ConvertFontsToSpans, apartment, page); }), 5);
  EXPECT_LT(Seconds([&] { RunFonts(chains::RemoveFontTags, apartment, page); }), 5);
}

// ---- the walk over the table blocks ----

using modQuillary::BalanceTableBlocks;
using modQuillary::BlockRoutine;
using modQuillary::BlockWalk;

Text ReferenceWalk(Text page, const BlockRoutine& balance, BlockWalk& end) {
  end = BlockWalk::Done;
  const std::int32_t tables = CountOccurrences(page, u"<table", Compare::IgnoreCase);
  if (tables == 0 || tables != CountOccurrences(page, u"</table>", Compare::IgnoreCase)) return page;
  std::int32_t position = 1;
  while (true) {
    const std::int32_t a = FindText(position, page, u"<table", Compare::IgnoreCase);
    if (a < 1) return page;
    const std::int32_t b = FindText(a, page, u"</table>", Compare::IgnoreCase);
    if (b < 1) return page;
    const Text block = Mid(page, a, b - a + 8);
    Text balanced;
    if (!Attempt([&] { balanced = balance(block); })) {
      end = BlockWalk::GoBack;
      return page;
    }
    ReplaceIn(page, block, balanced, Compare::Binary, 1);
    position = b;
  }
}

TEST(TableBlocks, AreReplacedWhereTheyStandFirst) {
  // Each routine changes a block in another way: it shrinks or grows, loses its
  // end, gains another one, or comes to equal a block in front of it.
  const std::vector<BlockRoutine> routines{
      [](TextView block) { return ReplaceAll(ReplaceAll(block, u"< ", u"<"), u" >", u">"); },
      [](TextView block) { return ReplaceAll(block, u"x", u"xxx<u>", Compare::Binary, 1); },
      [](TextView block) { return ReplaceAll(block, u"x", u""); },
      [](TextView block) { return ReplaceAll(block, u"y</table>", u"y</t</b>able>"); },
      [](TextView block) { return ReplaceAll(block, u"z", u"<table>y</TABLE>"); },
      [](TextView block) { return ReplaceAll(block, u"y", u"x", Compare::Binary, 1); },
      [](TextView block) {
        if (Holds(block, u"!")) throw Failure(Failure::Kind::Overflow);
        return ReplaceAll(block, u" ", u"");
      }};
  const std::vector<Text> pieces{u"<table>",
                                 u"<table",
                                 u"<TABLE >",
                                 u"</table>",
                                 u"</Table>",
                                 u"< /table>",
                                 u"x",
                                 u"y",
                                 u"z",
                                 u" ",
                                 u"<td >",
                                 u"</td>",
                                 u"!",
                                 u"<table>x</table>",
                                 u"<table>y</table>",
                                 u"<table>x</table>"};
  Random random(7);
  int changed = 0;
  int back = 0;
  Apartment apartment;
  for (int i = 0; i < 6000; ++i) {
    const BlockRoutine& routine = routines[random() % routines.size()];
    const Text page = PageOf(random, pieces, 30);
    BlockWalk expected_end = BlockWalk::Done;
    const Text expected = ReferenceWalk(page, routine, expected_end);
    rules::Rewriting fast = StartRewriting(apartment, page);
    ASSERT_EQ(BalanceTableBlocks(fast, routine), expected_end) << i;
    ASSERT_EQ(fast.text(), expected) << i;
    if (expected != page) ++changed;
    if (expected_end == BlockWalk::GoBack) ++back;
  }
  EXPECT_GT(changed, 300);
  EXPECT_GT(back, 20);
}

TEST(TableBlocks, AskToGoBackWhenABlockFails) {
  Apartment apartment;
  rules::Rewriting page = StartRewriting(apartment, u"<table>a</table>b<table>c</table>");
  int blocks = 0;
  const auto second_fails = [&](TextView) -> Text {
    if (++blocks == 2) throw Failure(Failure::Kind::Overflow);
    return u"<table>A</table>";
  };
  EXPECT_EQ(BalanceTableBlocks(page, second_fails), BlockWalk::GoBack);
  EXPECT_EQ(page.text(), u"<table>A</table>b<table>c</table>");
  const auto out_of_bounds = [](TextView) -> Text { throw LimitReached(LimitReached::Limit::Growth); };
  EXPECT_THROW(BalanceTableBlocks(page, out_of_bounds), LimitReached);
}

TEST(TableBlocks, CostGrowsWithThePage) {
  // Neighbours that shrink: every other table is passed over, and is the first
  // equal text for the next one.
  const auto run = [](int tables) {
    Apartment apartment;
    Text page;
    for (int i = 0; i < tables; ++i) page += u"<table><tr><td >x</td ></tr ><tr ><td >y</td ></tr ></table>";
    rules::Rewriting rewriting = StartRewriting(apartment, page);
    return Seconds([&] { BalanceTableBlocks(rewriting, apartment); });
  };
  run(2000);
  const double once = run(4000);
  EXPECT_LT(run(16000), 12 * once + 0.2);
}

// ---- forms ----

TEST(FormLayouts, AreForTheirPagesOnly) {
  const Text mail = u"<font FACE=\"Tms Rmn\" SIZE=\"3\" ></font><font FACE=\"Tms Rmn\" >";
  const Text memo =
      u"<BODY BGCOLOR=\"#FFFFFF\"><font FACE=\"Tms Rmn\" SIZE=\"3\" ><br><table BORDER=\"1\" "
      u"CELLSPACING=\"0\" "
      u"WIDTH=\"590\" bordercolorlight=\"#000000\" bordercolordark=\"#000000\" bordercolor=\"#000000\"><tr>";
  EXPECT_TRUE(modQuillary::IsMailForm(ToLower(mail)));
  EXPECT_FALSE(modQuillary::IsMailForm(ReplaceAll(mail, u"3\" >", u"3\">")));
  EXPECT_TRUE(modQuillary::IsCalendarForm(u"<font SIZE=\"1\">calendar entry:"));
  EXPECT_FALSE(modQuillary::IsCalendarForm(u"<font size=\"2\">Calendar Entry:"));
  EXPECT_TRUE(modQuillary::IsMemoForm(memo));
  EXPECT_FALSE(modQuillary::IsMemoForm(ReplaceAll(memo, u"590", u"690")));
  // The mail layout renames the face that the memo is known by.
  EXPECT_FALSE(modQuillary::IsMemoForm(rules::RunOver(chains::MailFormLayout, memo)));
}

}  // namespace
}  // namespace quillary

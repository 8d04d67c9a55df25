// The two rewrite chains: against the slow twin over real documents and over
// texts glued from the rules' own literals, and what single stages promise.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "rtf_to_html/rewriting/rewrite_bullets.rules.h"
#include "rtf_to_html/rewriting/rewrite_headings.rules.h"
#include "rules/chain_twin.h"

namespace quillary {
namespace {

const rules::Chain& Bullets() { return chains::RewriteChainBullets; }
const rules::Chain& Headings() { return chains::RewriteChainHeadings; }

Text Ran(Text text) {
  rules::Rewriting rewriting(std::move(text));
  rules::Run(Bullets(), rewriting);
  rules::Run(Headings(), rewriting);
  return rewriting.Take();
}

Text RanStage(const rules::Chain& chain, int stage, Text text) {
  rules::Rewriting rewriting(std::move(text));
  rules::RunStage(chain, stage, rewriting);
  return rewriting.Take();
}

Text Twin(Text text) { return RunTwin(Headings(), RunTwin(Bullets(), std::move(text))); }

// Each byte as its unit: the chains do not look beyond ASCII but for marks.
Text FileText(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  Text text;
  for (std::istreambuf_iterator<char> at(in), end; at != end; ++at) {
    text += static_cast<char16_t>(static_cast<unsigned char>(*at));
  }
  return text;
}

TEST(RewriteChains, GiveWhatRuleByRuleGivesOnRealDocuments) {
  const char* const corpus = std::getenv("QUILLARY_CORPUS");
  if (corpus == nullptr) GTEST_SKIP() << "QUILLARY_CORPUS names no folder of documents";
  int documents = 0;
  for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::path(corpus) / "rtf")) {
    const Text text = FileText(entry.path());
    ASSERT_EQ(Ran(text), Twin(text)) << entry.path();
    ++documents;
  }
  EXPECT_GT(documents, 0);
}

TEST(RewriteChains, GiveWhatRuleByRuleGivesOnTheirOwnLiterals) {
  std::vector<TextView> pieces;
  for (const rules::Chain* chain : {&Bullets(), &Headings()}) {
    for (const rules::Rule& rule : chain->rules) pieces.push_back(rule.find);
    for (const rules::Condition& condition : chain->conditions) pieces.push_back(condition.find);
  }
  std::mt19937 random(1);
  const auto below = [&](std::size_t end) {
    return std::uniform_int_distribution<std::size_t>(0, end - 1)(random);
  };
  for (int round = 0; round < 60; ++round) {
    Text text;
    const std::size_t size = round % 10 == 0 ? 12000 : 1500;
    while (text.size() < size) {
      const TextView piece = pieces[below(pieces.size())];
      const std::size_t from = below(4) == 0 && !piece.empty() ? below(piece.size()) : 0;
      text += piece.substr(from, below(4) == 0 ? 12 : TextView::npos);
      if (below(3) == 0) text += below(2) == 0 ? u"\r\n" : u" words";
    }
    ASSERT_EQ(Ran(text), Twin(text)) << "round " << round;
  }
}

struct StageCase {
  const rules::Chain& chain;
  int stage;
  TextView before;
  TextView after;
};

TEST(RewriteChains, DoStageByStageWhatIsWanted) {
  namespace bullets = chains::RewriteChainBullets_stages;
  namespace headings = chains::RewriteChainHeadings_stages;
  const StageCase cases[] = {
      // Two starts get the backslash, the third does not; an empty one counts.
      {Bullets(), bullets::openers, u"\\par \\pard \r\n\\par \\pard a\\par \\pard b",
       u"\\par \\pard\\ \r\n\\par \\pard\\ a\\par \\pard b"},
      // No more than the blanks that the rules name make a bullet empty.
      {Bullets(), bullets::empty_bullets, u"\\par {\\pntext\\f2\\'B7\\tab}   \r\n", u"\\par \\pard \r\n"},
      {Bullets(), bullets::empty_bullets, u"\\par {\\pntext\\f2\\'B7\\tab}    \r\n",
       u"\\par {\\pntext\\f2\\'B7\\tab}    \r\n"},
      {Bullets(), bullets::empty_bullets, u"\\par {\\pntext\\f1\\'b7\\tab} \r\n",
       u"\\par {\\pntext\\f1\\'b7\\tab} \r\n"},
      {Bullets(), bullets::euro, u"a \\'880 b\\'885 c \\'88x", u"a €0 b\\'885 c \\'88x"},
      // Only a text with a table; the rules behind the guarded ones always run.
      {Bullets(), bullets::cell_ends, u"\\cell\\fs20\\row\\pard{\\pntext\\f2\\'b7\\tab}",
       u"\\cell\\fs20\\row\\pard {\\pntext\\f2\\'B7\\tab}"},
      {Bullets(), bullets::cell_ends, u"\\CELLX1\\cell\\fs20\\row\\cell\\fs26\\row\\fs16\\cell\\b ",
       u"\\CELLX1\\fs20\\cell\\row\\cell\\fs26\\row\\fs16 \\cell\\b "},
      // Seventeen dashes; the guards' lists of fonts differ.
      {Bullets(), bullets::rulers, u"\\par \\f0 ----------------", u"\\par \\f0 ----------------"},
      {Bullets(), bullets::rulers, u"\\par \\f0 ----------------- \\par \\f3 --------------",
       u"\\par \\pard\\f0 ----------------- \\par \\f3 --------------"},
      {Bullets(), bullets::rulers,
       u"\\par \\f1 -----------------\\par \\f3 ---------------- \\par \\f5 -----------------",
       u"\\par \\pard\\f1 -----------------\\par \\f3 ---------------- \\par \\pard\\f5 -----------------"},
      // The number 1 keeps its number in front of \pard.
      {Bullets(), bullets::numbered_items,
       u"\\par {\\pntext\\f0 1)\\tab}\\pard \\par {\\pntext\\f0 9)\\tab}\\pard ",
       u"\\par {\\pntext\\f0 1)\\tab}\\pard \\par \\pard "},
      // The tenth rule hides the full group that the ones before it made.
      {Headings(), headings::full_bullet_groups, u"\\par \\par \\pard\\fi-360\\li360\\f1\\'b7\\tab\\f0 x",
       u"\\par \\pard\\{\\pntext\\f2\\'B7\\tab}\\fi-360\\li360 x"},
      {Headings(), headings::sizes_before_quotes, u"\\fs1\"\\fs30\"\\fs31\"", u"\\fs1 \"\\fs30 \"\\fs31\""},
      {Headings(), headings::heading_numbers,
       u"{\\pntext\\f1 19\\tab}\\pard\\li1440\\sa240\\tx1440 19\\tab a{\\pntext\\f1 "
       u"20\\tab}\\pard\\li1440\\sa240\\tx1440 20\\tab b",
       u"a{\\pntext\\f1 20\\tab}\\pard\\li1440\\sa240\\tx1440 20\\tab b"},
      {Headings(), headings::picture_ends, u"K9iûJ±¢jÍ}}}}}}x k9IÛJ±¢JÍ }y", u"K9iûJ±¢jÍ x K9iûJ±¢jÍ y"},
      // A prefix is enough.
      {Headings(), headings::heading_styles, u"\\pard\\keepn\\s12 ", u"2 "},
      // The marks come first once; a group that the cut completes goes too.
      {Headings(), headings::list_groups, u"a{\\*\\pn\\pnlvlblt\\pnf7\\x{\\pntxtb\\'b7}}b", u"ab"},
      {Headings(), headings::list_groups,
       u"{\\*\\pn\\{\\*\\pn\\pnlvlblt\\pnf1\\x{\\pntxtb\\'b7}}pnlvlblt\\pnf1\\y{\\pntxtb\\'b7}}z", u"z"},
      {Headings(), headings::list_groups, u"{\\pntxtb\\'b7}}{\\*\\pn\\pnlvlblt\\pnf1\\x{\\pntxtb\\'b7}}",
       u"{\\pntxtb\\'b7}}{\\*\\pn\\pnlvlblt\\pnf1\\x{\\pntxtb\\'b7}}"},
      {Headings(), headings::list_groups,
       u"{\\*\\pn\\pnlvlblt\\pnf1\\x{\\pntxtb\\'b7}}{\\pntxtb\\'b7}}{\\*\\pn\\pnlvlblt\\pnf1\\",
       u"{\\pntxtb\\'b7}}{\\*\\pn\\pnlvlblt\\pnf1\\"},
      {Headings(), headings::paragraph_split, u"\\viewkind4\\uc1\\pard\\b\\\\pard\\\\a\\pard\\qc\\b ",
       u"\\plain\\pard\\pard\\bÓ34:ì|+xxxx|©a\\plain\\pard\\qc\\b "},
      {Headings(), headings::left_borders, u"\\brsp40 ", u"\\brsp40 "},
      {Headings(), headings::left_borders, u"\\brdrl\\brdrs\\brdrw10\\brsp90 x", u"x"},
  };
  for (const StageCase& one : cases) {
    EXPECT_EQ(RanStage(one.chain, one.stage, Text(one.before)), one.after)
        << one.chain.name << "/" << one.stage << " on \"" << rulec::ToUtf8(one.before) << "\"";
  }
}

TEST(RewriteChains, MendDoubledFontsInShortTextsOnly) {
  const int stage = chains::RewriteChainHeadings_stages::doubled_fonts;
  const Text doubled = u"\\f0  \\f1 ";
  EXPECT_EQ(RanStage(Headings(), stage, Text(9990, u'x') + doubled), Text(9990, u'x') + u"\\f1  ");
  EXPECT_EQ(RanStage(Headings(), stage, Text(9991, u'x') + doubled), Text(9991, u'x') + doubled);
}

TEST(RewriteChains, HaveAsManyRulesAndStagesAsWereTakenDown) {
  EXPECT_EQ(Bullets().rules.size(), 267U);
  EXPECT_EQ(Bullets().stages.size(), 14U);
  EXPECT_EQ(Headings().rules.size(), 887U);
  EXPECT_EQ(Headings().stages.size(), 23U);
}

// The scan over groups against the loop it stands for.
TEST(RewriteChains, CutListGroupsAsTheLoopDoes) {
  const Text start = u"{\\*\\pn\\pnlvlblt\\pnf1\\";
  const Text end = u"{\\pntxtb\\'b7}}";
  std::mt19937 random(2);
  for (int round = 0; round < 3000; ++round) {
    Text text;
    for (int i = 0; i < 8; ++i) {
      const Text& whole = random() % 2 == 0 ? start : end;
      const std::size_t from = random() % 3 == 0 ? random() % whole.size() : 0;
      text += whole.substr(from, random() % 3 == 0 ? random() % whole.size() : Text::npos);
    }
    Text looped = text;
    while (true) {
      const std::size_t first = looped.find(start);
      const std::size_t last = looped.find(end);
      if (first == Text::npos || last == Text::npos || first > last) break;
      looped.erase(first, last + end.size() - first);
    }
    // Without the rules in front of it: they would change the fonts.
    rules::Rewriting rewriting(text);
    for (const rules::Step& step : Headings().steps) {
      if (step.kind == rules::Step::Kind::Scan) step.scan(rewriting);
    }
    ASSERT_EQ(rewriting.text(), looped) << rulec::ToUtf8(text);
  }
}

}  // namespace
}  // namespace quillary

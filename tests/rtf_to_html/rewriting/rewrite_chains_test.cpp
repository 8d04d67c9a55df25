// The two rewrite chains: against the slow reference implementation over real documents and over
// texts glued from the rules' own literals, and what single stages promise.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "rtf_to_html/rewriting/rewrite_bullets.rules.h"
#include "rtf_to_html/rewriting/rewrite_headings.rules.h"
#include "rules/chain_reference.h"
#include "rules/notation.h"
#include "text/encodings.h"

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

Text RuleByRule(Text text) { return RunRuleByRule(Headings(), RunRuleByRule(Bullets(), std::move(text))); }

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
    ASSERT_EQ(Ran(text), RuleByRule(text)) << entry.path();
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
    ASSERT_EQ(Ran(text), RuleByRule(text)) << "round " << round;
  }
}

TEST(RewriteChains, MendDoubledFontsInShortTextsOnly) {
  const int stage = chains::RewriteChainHeadings_stages::doubled_fonts;
  const Text doubled = u"\\f0  \\f1 ";
  EXPECT_EQ(RanStage(Headings(), stage, Text(9990, u'x') + doubled), Text(9990, u'x') + u"\\f1  ");
  EXPECT_EQ(RanStage(Headings(), stage, Text(9991, u'x') + doubled), Text(9991, u'x') + doubled);
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
    for (const rules::Part& part : Headings().parts) {
      if (part.kind == rules::Part::Kind::Scan) part.scan(rewriting, nullptr);
    }
    ASSERT_EQ(rewriting.text(), looped) << ToUtf8(rules::Written(text));
  }
}

}  // namespace
}  // namespace quillary

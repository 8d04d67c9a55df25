// The rule compiler: what the language means, and what it refuses.
#include <gtest/gtest.h>

#include "expand.h"
#include "masking.h"
#include "rule_file.h"

namespace quillary::rulec {
namespace {

const Sentinels& Known() {
  static const Sentinels known = ReadSentinels("sentinel bullet ⟨|Ü⟩ \"a bullet\"\n");
  return known;
}

FlatChain Compiled(const std::string& steps) {
  return Expand(ReadRules("chain Trial ignore-case\nstage one \"All of it.\"\n" + steps, Known(), "").at(0));
}

std::string Refusal(const std::string& source) {
  try {
    for (const ChainSource& chain : ReadRules(source, Known(), "")) Expand(chain);
  } catch (const Malformed& malformed) {
    return std::to_string(malformed.line()) + ": " + malformed.what();
  }
  return "accepted";
}

TEST(RuleFile, RefusesWhatIsMalformed) {
  const std::string head = "chain Trial binary\nstage one \"All of it.\"\n";
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"⟨a⟩ -> ⟨b⟩ bynary", "3: unknown word: bynary"},
      {"replace ⟨a⟩", "3: unknown word: replace"},
      {"\n⟨a⟩ -> ⟨b", "4: open literal"},
      {"⟨a⟩ ⟨b⟩", "3: rule without an arrow"},
      {"⟨a⟩ ->", "3: rule without a replacement"},
      {"⟨⟩ -> ⟨b⟩", "3: empty find"},
      {"⟨a<n>⟩ -> ⟨b⟩ for <n> 1 to", "3: range without end"},
      {"⟨a<n>⟩ -> ⟨b⟩ for <n> 1", "3: range without end"},
      {"⟨a<n>⟩ -> ⟨b⟩ for <n> 9 to 1", "3: range that runs the other way"},
      {"⟨a<n>⟩ -> ⟨b⟩ for <n> 1 to x", "3: not a number: x"},
      {"⟨a<n>⟩ -> ⟨b⟩ for <n> in", "3: list without values"},
      {"⟨a<n>⟩ -> ⟨b⟩ for <n> 1 to 2, <n> 1 to 2", "3: placeholder named twice: n"},
      {"⟨a⟩ -> ⟨b⟩ for <n> 1 to 2", "3: unknown placeholder, no literal uses it: n"},
      {"⟨a<n>⟩ -> ⟨b⟩", "3: unknown placeholder: n"},
      {"⟨a<label>⟩ -> ⟨b⟩ for <label> in x\n⟨a<label>⟩ -> ⟨b⟩", "4: unknown placeholder: label"},
      {"⟨a‹ballot›⟩ -> ⟨b⟩", "3: unknown sentinel: ballot"},
      {"⟨a  b⟩ -> ⟨b⟩", "3: bare run of blanks"},
      {"⟨a⟩ -> ⟨b ⟩", "3: bare blank at the edge of a literal"},
      {"⟨a⟩ -> ⟨b⟩ first 0", "3: first 0 replaces nothing"},
      {"when binary\n⟨a⟩ -> ⟨b⟩\nend", "3: guard without a find"},
      {"when ⟨⟩\n⟨a⟩ -> ⟨b⟩\nend", "3: guard without a find"},
      {"when ⟨x⟩\n⟨a⟩ -> ⟨b⟩", "3: when without an end"},
      {"for <n> 1 to 2\n⟨a<n>⟩ -> ⟨b⟩\nstage two \"More.\"\nend", "3: for without an end"},
      {"end", "3: unknown word: end"},
      {"scan Cut", "3: scan in a chain without a namespace"},
      {"⟨a⟩ -> ⟨b⟩\nstage one \"Again.\"", "4: duplicate stage: one"},
      {"stage two", "3: stage without its sentence"},
      {"chain Trial", "3: duplicate chain: Trial"},
  };
  for (const auto& [source, cause] : cases) EXPECT_EQ(Refusal(head + source), cause) << source;
  EXPECT_EQ(Refusal("⟨a⟩ -> ⟨b⟩"), "1: step outside a stage");
  EXPECT_EQ(Refusal("chain Trial\n⟨a⟩ -> ⟨b⟩"), "2: step outside a stage");
}

TEST(RuleFile, WritesFamiliesOutInOrder) {
  const FlatChain chain = Compiled(
      "⟨a<n>b<m>⟩ -> ⟨<m>⟩ first 2 for <n> 2 down to 1, <m> in x ii\n"
      "for <s> 1 to 2\n"
      "  when ⟨S<s>⟩ binary and not ⟨<b>⟩ and shorter than 10\n"
      "    ⟨‹bullet›<s>␣␣⏎␍␊\"⟩ -> ⟨⟩ binary\n"
      "  end\n"
      "end\n");
  std::vector<std::string> finds;
  for (const FlatRule& rule : chain.rules) finds.push_back(ToUtf8(rule.find));
  EXPECT_EQ(finds, (std::vector<std::string>{"a2bx", "a2bii", "a1bx", "a1bii", "|Ü1  \r\n\r\n\"",
                                             "|Ü2  \r\n\r\n\""}));
  EXPECT_EQ(chain.rules[1].with, u"ii");
  EXPECT_EQ(chain.rules[1].limit, 2);
  EXPECT_EQ(chain.rules[1].mode, Compare::IgnoreCase);
  EXPECT_EQ(chain.rules[4].mode, Compare::Binary);
  ASSERT_EQ(chain.conditions.size(), 6U);
  EXPECT_EQ(chain.conditions[3].find, u"S2");
  EXPECT_EQ(chain.conditions[4].kind, Asked::Kind::HoldsNot);
  EXPECT_EQ(chain.conditions[4].mode, Compare::IgnoreCase);
  EXPECT_EQ(chain.conditions[5].units, 10U);
  // The first guard skips its one step of rules, the second ends the stage.
  ASSERT_EQ(chain.steps.size(), 5U);
  EXPECT_EQ(chain.steps[1].skip, 3U);
  EXPECT_EQ(chain.steps[3].skip, 5U);
}

TEST(Masking, NamesTheRuleThatEatsAnother) {
  const FlatChain chain = Compiled(
      "⟨ab⟩ -> ⟨x⟩\n"
      "⟨cABc⟩ -> ⟨y⟩ binary\n"  // eaten by line 3
      "⟨cd⟩ -> ⟨x⟩ binary\n"
      "⟨cde⟩ -> ⟨y⟩\n"  // "CDE" is left
      "⟨12⟩ -> ⟨x⟩ binary\n"
      "⟨123⟩ -> ⟨y⟩\n"  // eaten by line 7
      "⟨p⟩ -> ⟨pp⟩\n"
      "⟨pp⟩ -> ⟨q⟩\n"  // brought back
      "⟨f⟩ -> ⟨⟩ first 1\n"
      "⟨ff⟩ -> ⟨⟩\n"                            // one is left
      "when ⟨u⟩\n⟨g⟩ -> ⟨⟩\n⟨gg⟩ -> ⟨⟩\nend\n"  // eaten by line 14
      "⟨ggg⟩ -> ⟨⟩\n"                           // without a "u" it is left
      "⟨k⟩ -> ⟨⟩\n⟨z⟩ -> ⟨kk⟩\n⟨kk⟩ -> ⟨⟩\n"
      "⟨<td>␣⟩ -> ⟨</td><td>⟩\n⟨<td>␣</td>⟩ -> ⟨⟩\n"  // eaten by line 21, not joined
      "⟨<table></td><td>␣</td>⟩ -> ⟨⟩\n");            // eaten by the nearest, line 22
  std::vector<std::array<std::size_t, 3>> lines;
  for (const Masked& masked : FindMasked(chain)) {
    const std::size_t joined_by = masked.joined_by == nullptr ? 0 : masked.joined_by->line;
    lines.push_back({masked.rule->line, masked.by->line, joined_by});
  }
  const std::vector<std::array<std::size_t, 3>> expected = {
      {4, 3, 3}, {8, 7, 7}, {15, 14, 14}, {22, 21, 0}, {23, 22, 22}};
  EXPECT_EQ(lines, expected);
}

TEST(RuleFile, RefusesSentinelsThatAreAlike) {
  const auto cause = [](const char* source) -> std::string {
    try {
      ReadSentinels(source);
    } catch (const Malformed& malformed) {
      return malformed.what();
    }
    return "accepted";
  };
  EXPECT_EQ(cause("sentinel a ⟨x⟩ \"x\"\nsentinel a ⟨y⟩ \"y\""), "duplicate sentinel: a");
  EXPECT_EQ(cause("sentinel a ⟨x⟩ \"x\"\nsentinel b ⟨x⟩ \"y\""), "the same literal as sentinel a");
  EXPECT_EQ(cause("sentinel a ⟨⟩ \"x\""), "empty sentinel");
  EXPECT_EQ(cause("⟨x⟩"), "unknown word: x");
}

}  // namespace
}  // namespace quillary::rulec

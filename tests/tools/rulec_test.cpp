// The rule compiler: what the language means, and what it refuses.
#include <gtest/gtest.h>

#include "expand.h"
#include "rule_file.h"

namespace quillary::rulec {
namespace {

const Names& Known() {
  static const Names known = ReadSentinels("sentinel bullet ⟨|Ü⟩ \"a bullet\"\n");
  return known;
}

FlatChain Compiled(const std::string& parts) {
  return Expand(ReadRules("chain Trial ignore-case\nstage one \"All of it.\"\n" + parts, Known(), "").at(0));
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
      {"⟨a‹ballot›⟩ -> ⟨b⟩", "3: unknown name: ballot"},
      {"⟨a  b⟩ -> ⟨b⟩", "3: bare run of spaces"},
      {"⟨a⟩ -> ⟨b ⟩", "3: bare space at the edge of a literal"},
      {"⟨a\tb⟩ -> ⟨b⟩", "3: invisible character in a literal"},
      {"⟨a\u00A0b⟩ -> ⟨b⟩", "3: invisible character in a literal"},
      {"⟨a⟩ -> ⟨\uFEFF⟩", "3: invisible character in a literal"},
      {"⟨a\\u{110000}⟩ -> ⟨b⟩", "3: no character has the number 110000"},
      {"⟨a\\u{1000000041}⟩ -> ⟨b⟩", "3: no character has the number 1000000041"},
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
  const std::string used = head + "⟨‹x›⟩ -> ⟨⟩";
  EXPECT_EQ(Refusal("let x ⟨y⟩ \"why\"\n" + used), "accepted");
  EXPECT_EQ(Refusal("let x ⟨y⟩ \"why\"\n" + head + "⟨a⟩ -> ⟨b⟩"), "1: unused name: x");
  EXPECT_EQ(Refusal("let x ⟨y⟩ \"why\"\nlet x ⟨z⟩ \"why\"\n" + used), "2: duplicate name: x");
  EXPECT_EQ(Refusal("let bullet ⟨y⟩ \"why\"\n" + used), "1: duplicate name: bullet");
  EXPECT_EQ(Refusal("let x ⟨‹z›⟩ \"why\"\nlet z ⟨y⟩ \"why\"\n" + used), "1: unknown name: z");
  EXPECT_EQ(Refusal("let x ⟨a<n>⟩ \"why\"\n" + used), "1: unknown placeholder: n");
  EXPECT_EQ(Refusal("let x ⟨y⟩\n" + used), "1: let without its meaning");
  EXPECT_EQ(Refusal("let x ⟨⟩ \"why\"\n" + used), "1: empty let");
  EXPECT_EQ(Refusal(used + "\nlet x ⟨y⟩ \"why\""), "3: unknown name: x");
  EXPECT_EQ(Refusal(head + "let x ⟨y⟩ \"why\""), "3: let after a chain");
  EXPECT_EQ(Refusal("⟨a⟩ -> ⟨b⟩"), "1: part outside a stage");
  EXPECT_EQ(Refusal("chain Trial\n⟨a⟩ -> ⟨b⟩"), "2: part outside a stage");
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
  // The first guard skips its one part of rules, the second ends the stage.
  ASSERT_EQ(chain.parts.size(), 5U);
  EXPECT_EQ(chain.parts[1].skip, 3U);
  EXPECT_EQ(chain.parts[3].skip, 5U);
}

TEST(RuleFile, PutsInNamedLiteralsAndTellsSharedOnesThatNobodyUses) {
  std::set<std::string> used;
  const Names shared = ReadSentinels(
      "let tab ⟨\\tab⟩ \"a tab\"\nlet group ⟨{‹tab›}⟩ \"a group\"\nlet other ⟨o⟩ \"another\"\n"
      "sentinel hidden ⟨#⟩ \"hidden\"\n",
      &used);
  const std::vector<ChainSource> chains = ReadRules(
      "let own ⟨‹group›␣⟩ \"one's own\"\nchain Trial binary\nstage one \"A.\"\n⟨‹own›⟩ -> ⟨‹group›‹hidden⟩\n",
      shared, "", &used);
  const FlatChain chain = Expand(chains.at(0));
  EXPECT_EQ(chain.rules.at(0).find, u"{\\tab} ");
  EXPECT_EQ(chain.rules[0].with, u"{\\tab}‹hidden");
  EXPECT_EQ(used, (std::set<std::string>{"tab", "group", "own"}));
  try {
    CheckAllUsed(shared, used);
    ADD_FAILURE() << "accepted";
  } catch (const Malformed& malformed) {
    EXPECT_EQ(malformed.line(), 3U);
    EXPECT_STREQ(malformed.what(), "unused name: other");
  }
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
  EXPECT_EQ(cause("sentinel a ⟨x⟩ \"x\"\nsentinel a ⟨y⟩ \"y\""), "duplicate name: a");
  EXPECT_EQ(cause("sentinel a ⟨x⟩ \"x\"\nsentinel b ⟨x⟩ \"y\""), "the same literal as a");
  EXPECT_EQ(cause("sentinel a ⟨⟩ \"x\""), "empty sentinel");
  EXPECT_EQ(cause("⟨x⟩"), "unknown word: x");
}

}  // namespace
}  // namespace quillary::rulec

// The engine against its slow reference implementation, over chains and texts made at random and
// over all small ones. Compiled twice: in the check build every rule that the
// engine skips is searched for all the same.
#include <gtest/gtest.h>

#include <random>

#include "rules/chain_reference.h"
#include "rules/firing_log.h"
#include "text/failure.h"
#include "text/search.h"

namespace quillary {
namespace {

using rules::Rewriting;

Text Ran(const rules::Chain& chain, const Text& text) {
  Rewriting rewriting(text);
  rules::Run(chain, rewriting);
  return rewriting.Take();
}

// So many rules that no text holds: enough to make the engine index the text.
std::string Padding() {
  std::string rules;
  for (char c = 'a'; c <= 'z'; ++c) rules += std::string("  ⟨@") + c + "@@⟩ -> ⟨.⟩\n";
  return rules;
}

class Maker {
 public:
  explicit Maker(unsigned seed) : random_(seed) {}

  std::size_t Below(std::size_t end) {
    return std::uniform_int_distribution<std::size_t>(0, end - 1)(random_);
  }
  bool OneIn(std::size_t count) { return Below(count) == 0; }

  // Units that fold onto each other, within ASCII and beyond, and that are
  // near each other's hashes; mostly few different ones, so that much matches.
  Text Units(std::size_t count, std::size_t variety) {
    static const Text alphabet = u"abA\\kK\u212AéÉ \r\nBſsS{}Ω\u03C9x";
    Text text;
    while (text.size() < count) text += alphabet[Below(std::min(variety, alphabet.size()))];
    return text;
  }

  // A piece of the text or made at random.
  Text Literal(const Text& text, std::size_t variety) {
    const std::size_t longest = OneIn(12) ? 200 : OneIn(3) ? 12 : 4;
    if (!text.empty() && !OneIn(3)) return text.substr(Below(text.size()), 1 + Below(longest));
    return Units(1 + Below(4), variety);
  }

  rulec::FlatChain Chain(const Text& text, std::size_t variety) {
    rulec::FlatChain chain;
    chain.name = "Made";
    for (std::size_t stage = 0; stage < 3; ++stage) {
      const std::size_t first = chain.parts.size();
      for (std::size_t i = 0; i < 4; ++i) AddPart(chain, text, variety);
      chain.stages.push_back({"made", "Made.", first, chain.parts.size() - first});
    }
    return chain;
  }

 private:
  Compare Mode() { return OneIn(2) ? Compare::Binary : Compare::IgnoreCase; }

  void AddPart(rulec::FlatChain& chain, const Text& text, std::size_t variety) {
    const std::size_t guard = chain.parts.size();
    const bool guarded = OneIn(3);
    if (guarded) {
      chain.parts.push_back(
          {rulec::FlatPart::Kind::Guard, chain.conditions.size(), 1, 0, "", rulec::StateUse::None, 0});
      const auto kind = static_cast<rulec::Asked::Kind>(Below(3));
      chain.conditions.push_back(
          {kind, Literal(text, variety), Mode(), static_cast<std::uint32_t>(text.size())});
    }
    rulec::FlatPart part{
        rulec::FlatPart::Kind::Rules, chain.rules.size(), 4 + Below(12), 0, "", rulec::StateUse::None, 0};
    for (std::size_t i = 0; i < part.count; ++i) {
      const Text with = OneIn(3) ? Text() : Literal(text, variety);
      const std::int32_t limit = OneIn(4) ? static_cast<std::int32_t>(1 + Below(3)) : -1;
      // Growth by rules that feed each other must stay small.
      const Text find = Literal(text, variety);
      chain.rules.push_back(
          {find, with.size() > find.size() + 2 ? with.substr(0, 2) : with, Mode(), limit, 0});
    }
    chain.parts.push_back(part);
    if (guarded) chain.parts[guard].skip = chain.parts.size();
  }

  std::mt19937 random_;
};

TEST(Engine, GivesWhatRuleByRuleGives) {
  for (unsigned seed = 0; seed < 400; ++seed) {
    Maker maker(seed);
    const std::size_t variety = 2 + maker.Below(20);
    // Now and then a text that is long enough to be divided into stretches.
    const std::size_t units = seed % 20 == 0 ? 4000 + maker.Below(8000) : maker.Below(300);
    const Text text = maker.Units(units, variety);
    const MadeChain made(maker.Chain(text, variety));
    const Text expected = RunRuleByRule(made.chain(), text);
    ASSERT_EQ(Ran(made.chain(), text), expected) << "seed " << seed;
    // Without the chain's own hashes, as stages that are not rules ask.
    Rewriting direct(text);
    Text reference = text;
    for (const rules::Rule& rule : made.chain().rules) {
      ASSERT_EQ(direct.Holds(rule.find, rule.mode), ReferenceHolds(reference, rule.find, rule.mode))
          << "seed " << seed;
      const bool replaced = ReferenceReplace(reference, rule);
      ASSERT_EQ(direct.Replace(rule.find, rule.with, rule.mode, rule.limit), replaced) << "seed " << seed;
    }
    ASSERT_EQ(direct.text(), reference) << "seed " << seed;
  }
}

// A long text in which hardly any run stands twice, and rules that match it
// and what the rules before them made of it, all around the places where the
// stretches of an index meet.
TEST(Engine, FindsWhatLiesWhereStretchesMeet) {
  for (unsigned seed = 0; seed < 40; ++seed) {
    Maker maker(seed);
    const auto rare = [&](std::size_t count) {
      Text units;
      while (units.size() < count) {
        units += static_cast<char16_t>(maker.OneIn(2) ? u'a' + maker.Below(26) : 0x4E00 + maker.Below(2000));
      }
      return units;
    };
    const Text text = rare(6000 + maker.Below(8000));
    const std::size_t stretches = text.size() / 1024;
    std::vector<double> meetings;
    for (std::size_t i = 1; i < stretches; ++i)
      meetings.push_back(static_cast<double>(text.size() / stretches * i));
    rulec::FlatChain flat;
    Text now = text;
    for (std::size_t i = 0; i < 150 && now.size() > 4000; ++i) {
      double& meeting = meetings[maker.Below(meetings.size())];
      const std::size_t taken = 1 + maker.Below(maker.OneIn(4) ? 300 : 8);
      const auto at = static_cast<std::size_t>(meeting) + maker.Below(160) - std::min<std::size_t>(80, taken);
      if (at + taken >= now.size()) continue;
      const Text brought = rare(maker.OneIn(3) ? 0 : maker.Below(taken + 2));
      flat.rules.push_back({now.substr(at, taken), brought, Compare::Binary, -1, 0});
      ReferenceReplace(now, {flat.rules.back().find, brought});
      const double moved = static_cast<double>(brought.size()) - static_cast<double>(taken);
      for (double& later : meetings) {
        if (later > static_cast<double>(at)) later += moved;
      }
    }
    flat.parts.push_back(
        {rulec::FlatPart::Kind::Rules, 0, flat.rules.size(), 0, "", rulec::StateUse::None, 0});
    flat.stages.push_back({"made", "Made.", 0, 1});
    const MadeChain made(std::move(flat));
    ASSERT_EQ(Ran(made.chain(), text), now) << "seed " << seed;
  }
}

TEST(Engine, IsRightOnAllSmallTextsAndRules) {
  const std::vector<std::string> finds = {"a", "b", "ab", "ba", "aa", "Ab", "aba", "abab", "bbbb"};
  const std::vector<std::string> withs = {"", "a", "B", "ab", "bba"};
  std::vector<Text> texts = {u""};
  for (std::size_t i = 0; texts.size() < 250; ++i) {
    texts.push_back(texts[i] + u'a');
    texts.push_back(texts[i] + u'B');
  }
  for (const std::string& first : finds) {
    for (const std::string& second : finds) {
      std::string rules = "chain Small ignore-case\nstage all \"All.\"\n" + Padding();
      for (const std::string& with : withs) {
        rules += "  ⟨" + first + "⟩ -> ⟨" + with + "⟩ first 2\n  ⟨" + second + "⟩ -> ⟨" + with + "⟩ binary\n";
      }
      const MadeChain made(rules);
      for (const Text& text : texts) {
        ASSERT_EQ(Ran(made.chain(), text), RunRuleByRule(made.chain(), text)) << rules;
      }
    }
  }
}

TEST(Engine, StopsAtTheLimitAndLeavesTheTextAsItWas) {
  Rewriting text(u"abab");
  text.set_limit(6);
  EXPECT_THROW(text.Replace(u"a", u"xxx", Compare::Binary), LimitReached);
  EXPECT_EQ(text.text(), u"abab");
  EXPECT_TRUE(text.Replace(u"a", u"xx", Compare::Binary));
  EXPECT_EQ(text.text(), u"xxbxxb");
  EXPECT_TRUE(text.Replace(u"x", u"y", Compare::Binary, 1));
  EXPECT_EQ(text.Take(), u"yxbxxb");
  EXPECT_EQ(text.text(), u"");
}

TEST(Engine, TakesLiteralsOutOfItsOwnText) {
  Rewriting text(u"one two one two");
  EXPECT_TRUE(
      text.Replace(TextView(text.text()).substr(0, 3), TextView(text.text()).substr(4, 3), Compare::Binary));
  EXPECT_EQ(text.text(), u"two two two two");
}

TEST(Engine, SeesWhatAScanPutIn) {
  const MadeChain made("chain Once binary\nstage all \"All.\"\n" + Padding() + "  ⟨scanned⟩ -> ⟨seen⟩\n");
  Rewriting text(u"a text of some length, without it");
  rules::Run(made.chain(), text);
  text.Assign(text.text() + u" scanned");
  rules::Run(made.chain(), text);
  EXPECT_EQ(text.text(), u"a text of some length, without it seen");
}

TEST(Engine, RunsOneStageAlone) {
  const MadeChain made("chain Two binary\nstage one \"A.\"\n  ⟨a⟩ -> ⟨b⟩\nstage two \"B.\"\n  ⟨b⟩ -> ⟨c⟩\n");
  Rewriting text(u"ab");
  rules::RunStage(made.chain(), 2, text);
  EXPECT_EQ(text.text(), u"ac");
  EXPECT_THROW(rules::RunStage(made.chain(), 3, text), Failure);
  EXPECT_THROW(rules::RunStage(made.chain(), 0, text), Failure);
}

TEST(FiringLog, NotesEachRuleOnceWithItsFirstHit) {
  const MadeChain made(
      "chain Noted binary\nstage one \"A.\"\n  ⟨a⟩ -> ⟨bb⟩\n  ⟨z⟩ -> ⟨y⟩\n"
      "stage two \"B.\"\n  when ⟨bb⟩\n  ⟨bb⟩ -> ⟨⟩ first 1\n  end\n");
  rules::FiringLog log;
  for (const char16_t* source : {u"-a-a-", u"a"}) {
    Rewriting text(source);
    text.set_log(&log);
    rules::Run(made.chain(), text);
  }
  ASSERT_EQ(log.firings().size(), 2U);
  const rules::Firing& first = log.firings()[0];
  EXPECT_EQ(first.rule->line, 3U);
  EXPECT_EQ(first.stage, 1);
  EXPECT_EQ(first.count, 3U);
  EXPECT_EQ(first.before, u"-a-a-");
  EXPECT_EQ(first.after, u"-bb-bb-");
  EXPECT_EQ(log.firings()[1].count, 2U);
  EXPECT_EQ(log.firings()[1].after, u"--bb-");
}

}  // namespace
}  // namespace quillary

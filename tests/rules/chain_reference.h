// Chains made in a test, and the slow, literal reference implementation that judges the engine:
// rule by rule with a plain search over the whole text.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "expand.h"
#include "grams.h"
#include "rule_file.h"
#include "rules/run.h"
#include "text/case_folding.h"

namespace quillary {

/// A chain compiled from the text of a rule file, as the build compiles it.
class MadeChain {
 public:
  explicit MadeChain(const std::string& source) : MadeChain(FromSource(source)) {}
  explicit MadeChain(rulec::FlatChain flat) : flat_(std::move(flat)) {
    rulec::CutIntoBlocks(flat_);
    for (const rulec::FlatRule& rule : flat_.rules) {
      const std::uint32_t first = AddGrams(rule.find);
      const auto count = static_cast<std::uint32_t>(grams_.size()) - first;
      rules_.push_back(
          {rule.find, rule.with, rule.mode, rule.limit, static_cast<std::uint32_t>(rule.line), first, count});
      first_grams_.push_back(count == 0 ? 0 : grams_[first]);
    }
    for (const rulec::FlatCondition& condition : flat_.conditions) {
      const std::uint32_t first = AddGrams(condition.find);
      const auto count = static_cast<std::uint32_t>(grams_.size()) - first;
      conditions_.push_back({static_cast<rules::Condition::Kind>(condition.kind), condition.find,
                             condition.mode, condition.units, first, count});
    }
    for (const rulec::FlatPart& part : flat_.parts) {
      parts_.push_back({static_cast<rules::Part::Kind>(part.kind), static_cast<std::uint32_t>(part.first),
                        static_cast<std::uint32_t>(part.count), static_cast<std::uint32_t>(part.skip),
                        part.gram, nullptr, nullptr});
    }
    for (const rulec::FlatStage& stage : flat_.stages) {
      stages_.push_back({stage.name.c_str(), stage.purpose.c_str(), static_cast<std::uint32_t>(stage.first),
                         static_cast<std::uint32_t>(stage.count)});
    }
    chain_ = {flat_.name.c_str(), "made.rules", nullptr,     stages_, parts_, rules_,
              conditions_,        grams_,       first_grams_};
  }
  MadeChain(const MadeChain&) = delete;
  MadeChain& operator=(const MadeChain&) = delete;

  const rules::Chain& chain() const { return chain_; }

 private:
  static rulec::FlatChain FromSource(const std::string& source) {
    return rulec::Expand(rulec::ReadRules(source, {}, "").at(0));
  }
  std::uint32_t AddGrams(TextView find) {
    const auto first = static_cast<std::uint32_t>(grams_.size());
    for (const std::uint32_t gram : rulec::TellingGrams(find)) grams_.push_back(gram);
    return first;
  }

  rulec::FlatChain flat_;
  std::vector<rules::Rule> rules_;
  std::vector<rules::Condition> conditions_;
  std::vector<rules::Part> parts_;
  std::vector<rules::Stage> stages_;
  std::vector<std::uint32_t> grams_;
  std::vector<std::uint32_t> first_grams_;
  rules::Chain chain_;
};

/// What is compared in that mode.
inline Text ReferenceCompared(TextView text, Compare mode) {
  Text compared(text);
  if (mode == Compare::IgnoreCase) {
    for (char16_t& unit : compared) unit = FoldUnit(unit);
  }
  return compared;
}

inline bool ReferenceHolds(const Text& text, TextView find, Compare mode) {
  return ReferenceCompared(text, mode).find(ReferenceCompared(find, mode)) != Text::npos;
}

/// From left to right, never looking at what was put in.
inline bool ReferenceReplace(Text& text, const rules::Rule& rule) {
  const Text compared = ReferenceCompared(text, rule.mode);
  const Text find = ReferenceCompared(rule.find, rule.mode);
  std::size_t at = compared.find(find);
  if (at == Text::npos) return false;
  Text result;
  std::int32_t count = 0;
  std::size_t from = 0;
  for (; at != Text::npos && count != rule.limit; ++count) {
    result.append(text, from, at - from).append(rule.with);
    from = at + find.size();
    at = compared.find(find, from);
  }
  text = result.append(text, from);
  return count > 0;
}

inline bool ReferenceMet(const rules::Condition& condition, const Text& text) {
  if (condition.kind == rules::Condition::Kind::ShorterThan) return text.size() < condition.units;
  return ReferenceHolds(text, condition.find, condition.mode) ==
         (condition.kind == rules::Condition::Kind::Holds);
}

/// What running the chain means.
inline Text RunRuleByRule(const rules::Chain& chain, Text text) {
  for (const rules::Stage& stage : chain.stages) {
    for (std::uint32_t at = stage.first; at < stage.first + stage.count;) {
      const rules::Part& part = chain.parts[at++];
      if (part.kind == rules::Part::Kind::Scan) {
        rules::Rewriting whole(std::move(text));
        part.scan(whole, nullptr);
        text = whole.Take();
      } else if (part.kind == rules::Part::Kind::Rules) {
        for (const rules::Rule& rule : chain.rules.subspan(part.first, part.count)) {
          ReferenceReplace(text, rule);
        }
      } else {
        const auto conditions = chain.conditions.subspan(part.first, part.count);
        const bool met = std::all_of(conditions.begin(), conditions.end(),
                                     [&](const auto& condition) { return ReferenceMet(condition, text); });
        if (!met) at = part.skip;
      }
    }
  }
  return text;
}

}  // namespace quillary

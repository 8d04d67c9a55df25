#include "masking.h"

#include <algorithm>

#include "text/case_folding.h"

namespace quillary::rulec {
namespace {

// Units that two literals must have in common to be thought of as joined.
constexpr std::size_t telling_overlap = 6;

Text Folded(TextView text) {
  Text folded(text);
  for (char16_t& unit : folded) unit = FoldUnit(unit);
  return folded;
}

bool HasCase(TextView text) {
  return std::any_of(text.begin(), text.end(),
                     [](char16_t unit) { return FoldVariants(unit)[0] != FoldVariants(unit)[1]; });
}

// A rule with its literals folded and the guards it stands under.
struct Placed {
  const FlatRule* rule = nullptr;
  Text find;
  Text with;
  std::vector<std::size_t> guards;
};

std::vector<Placed> Place(const FlatChain& chain, const FlatStage& stage) {
  std::vector<Placed> placed;
  std::vector<std::size_t> guards;
  for (std::size_t at = stage.first; at < stage.first + stage.count; ++at) {
    const FlatStep& step = chain.steps[at];
    std::erase_if(guards, [&](std::size_t guard) { return chain.steps[guard].skip <= at; });
    if (step.kind == FlatStep::Kind::Guard) guards.push_back(at);
    if (step.kind != FlatStep::Kind::Rules) continue;
    for (std::size_t i = step.first; i < step.first + step.count; ++i) {
      const FlatRule& rule = chain.rules[i];
      placed.push_back({&rule, Folded(rule.find), Folded(rule.with), guards});
    }
  }
  return placed;
}

// Whether no occurrence of the later find text is left behind the earlier rule.
bool Eats(const Placed& earlier, const Placed& later) {
  if (earlier.rule->limit >= 0 || earlier.guards.size() > later.guards.size() ||
      !std::equal(earlier.guards.begin(), earlier.guards.end(), later.guards.begin())) {
    return false;
  }
  if (earlier.rule->mode == Compare::IgnoreCase) return later.find.find(earlier.find) != Text::npos;
  const bool exact = later.rule->mode == Compare::Binary || !HasCase(earlier.rule->find);
  return exact && later.rule->find.find(earlier.rule->find) != Text::npos;
}

// Whether the replacement can stand in the middle of the find text, or at one
// of its ends with enough of it to tell.
bool MayJoin(const Text& with, const Text& find) {
  if (with.size() < telling_overlap || find.find(with) != Text::npos) return true;
  for (std::size_t length = telling_overlap; length < std::min(with.size(), find.size()); ++length) {
    if (with.starts_with(find.substr(find.size() - length)) || with.ends_with(find.substr(0, length)))
      return true;
  }
  return false;
}

}  // namespace

std::vector<Masked> FindMasked(const FlatChain& chain) {
  std::vector<Masked> masked;
  for (const FlatStage& stage : chain.stages) {
    const std::vector<Placed> rules = Place(chain, stage);
    for (std::size_t i = 0; i < rules.size(); ++i) {
      // From the nearest rule back, until one brings the find text itself.
      const FlatRule* joined_by = nullptr;
      for (std::size_t k = i; k > 0; --k) {
        const Placed& earlier = rules[k - 1];
        if (earlier.with.find(rules[i].find) != Text::npos) break;
        if (MayJoin(earlier.with, rules[i].find)) joined_by = earlier.rule;
        if (!Eats(earlier, rules[i]) || earlier.with.find(earlier.find) != Text::npos) continue;
        masked.push_back({rules[i].rule, earlier.rule, joined_by});
        break;
      }
    }
  }
  return masked;
}

}  // namespace quillary::rulec

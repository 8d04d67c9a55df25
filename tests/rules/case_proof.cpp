#include "rules/case_proof.h"

#include <algorithm>

#include "text/case_folding.h"
#include "text/search.h"

namespace quillary {
namespace {

// The runs of a rule's find text are hashed folded: they serve either mode.
rules::Rule Changed(rules::Rule rule, Change change) {
  switch (change) {
    case Change::Dropped:
      rule.limit = 0;
      break;
    case Change::Flipped:
      rule.mode = rule.mode == Compare::Binary ? Compare::IgnoreCase : Compare::Binary;
      break;
    case Change::Unlimited:
      rule.limit = -1;
      break;
  }
  return rule;
}

}  // namespace

ChangedChain::ChangedChain(const rules::Chain& chain, const rules::Rule& rule, Change change)
    : rules_(chain.rules.begin(), chain.rules.end()), chain_(chain) {
  rules_[static_cast<std::size_t>(&rule - chain.rules.data())] = Changed(rule, change);
  chain_.rules = rules_;
}

bool CanChange(const rules::Rule& rule, Change change, const rulec::Names& sentinels) {
  if (change == Change::Unlimited) return rule.limit > 0;
  if (change == Change::Dropped) return true;
  Text find(rule.find);
  for (const rulec::Named& sentinel : sentinels) {
    if (sentinel.kind != rulec::Named::Kind::Sentinel) continue;
    for (std::size_t at = find.find(sentinel.text); at != Text::npos; at = find.find(sentinel.text)) {
      find.replace(at, sentinel.text.size(), u" ");
    }
  }
  return std::any_of(find.begin(), find.end(), [](char16_t unit) {
    const auto variants = FoldVariants(unit);
    return variants[1] != variants[0];
  });
}

HeldCases::HeldCases(const CaseFile& file) {
  for (const std::vector<RuleCase>* list : {&file.changes, &file.keeps}) {
    for (const RuleCase& one : *list) {
      Verdict verdict = Judge(one);
      if (verdict.failure.empty()) held_.push_back({one, std::move(verdict.fired)});
    }
  }
}

bool HeldCases::Fires(const rules::Rule& rule) const {
  return std::any_of(held_.begin(), held_.end(),
                     [&](const Held& held) { return held.fired.contains(&rule); });
}

bool HeldCases::Notices(const rules::Chain& chain, const rules::Rule& rule, Change change) const {
  const ChangedChain changed(chain, rule, change);
  const bool wider = change == Change::Flipped && rule.mode == Compare::Binary;
  return std::any_of(held_.begin(), held_.end(), [&](const Held& held) {
    const bool concerned =
        held.fired.contains(&rule) || (wider && Holds(held.one.from, rule.find, Compare::IgnoreCase));
    return concerned && !Judge(held.one, &changed.chain()).failure.empty();
  });
}

}  // namespace quillary

#include "rules/case_verdicts.h"

#include <algorithm>

#include "apartment/apartment.h"
#include "component/all_chains.h"
#include "rules/firing_log.h"
#include "rules/notation.h"
#include "rules/run.h"
#include "text/case_folding.h"

namespace quillary {
namespace {

// The chain and the stage's number, 0 for the whole chain; no chain if there is none.
std::pair<const rules::Chain*, int> Find(const CaseTarget& target, const rules::Chain* changed) {
  for (const rules::Chain* chain : component::AllChains()) {
    if (chain->name != target.chain) continue;
    if (changed != nullptr && changed->name == target.chain) chain = changed;
    if (target.stage.empty()) return {chain, 0};
    for (std::size_t i = 0; i < chain->stages.size(); ++i) {
      if (chain->stages[i].name == target.stage) return {chain, static_cast<int>(i) + 1};
    }
  }
  return {nullptr, 0};
}

// Where two texts begin to differ, with what follows in the second.
std::string Parting(TextView wanted, TextView got) {
  const auto [w, g] = std::mismatch(wanted.begin(), wanted.end(), got.begin(), got.end());
  const auto at = static_cast<std::size_t>(g - got.begin());
  return "unit " + std::to_string(at) + ", " + ToUtf8(rules::Written(got.substr(at, 40)));
}

Text Folded(Text text) {
  for (char16_t& unit : text) unit = FoldUnit(unit);
  return text;
}

}  // namespace

Outcome RanOver(const std::vector<CaseTarget>& targets, const Text& text, const rules::Chain* changed) {
  rules::FiringLog log;
  Apartment apartment;
  apartment.firing_log = &log;
  rules::Rewriting rewriting = StartRewriting(apartment, text);
  Outcome outcome;
  for (const CaseTarget& target : targets) {
    const auto [chain, stage] = Find(target, changed);
    if (chain == nullptr) {
      outcome.unknown = target.chain + (target.stage.empty() ? "" : "/" + target.stage);
    } else if (stage == 0) {
      rules::Run(*chain, rewriting, &apartment.rtf_to_html);
    } else {
      rules::RunStage(*chain, stage, rewriting, &apartment.rtf_to_html);
    }
  }
  outcome.text = rewriting.Take();
  for (const rules::Firing& firing : log.firings()) outcome.fired.insert(firing.rule);
  return outcome;
}

// A literal for each line of the text.
std::string Spelled(TextView text) {
  std::string spelled;
  while (!text.empty()) {
    const std::size_t end = text.find(u"\r\n");
    const TextView line = text.substr(0, end == TextView::npos ? end : end + 2);
    spelled += (spelled.empty() ? "" : "\n       ") + ToUtf8(rules::Written(line));
    text.remove_prefix(line.size());
  }
  return spelled.empty() ? "⟨⟩" : spelled;
}

Verdict Judge(const RuleCase& one, const rules::Chain* changed) {
  const Outcome outcome = RanOver(one.targets, one.from, changed);
  if (!outcome.unknown.empty()) return {one.line, {}, "no such chain or stage: " + outcome.unknown};
  const Text wanted = one.folded ? Folded(one.to) : one.to;
  const Text got = one.folded ? Folded(outcome.text) : outcome.text;
  if (got == wanted) return {one.line, outcome.fired, ""};
  const char* const manner = one.folded           ? "another result with the letters in the other case"
                             : one.from == one.to ? "not kept"
                                                  : "another result";
  return {one.line,
          {},
          std::string(manner) + "\n  from " + Spelled(one.from) + "\n  to   " + Spelled(one.to) +
              "\n  got  " + Spelled(outcome.text) + "\n  they part at " + Parting(wanted, got)};
}

}  // namespace quillary

#include "rules/run.h"

#include <algorithm>

#include "text/failure.h"

namespace quillary::rules {
namespace {

bool Met(const Condition& condition, Rewriting& text) {
  switch (condition.kind) {
    case Condition::Kind::ShorterThan:
      return text.text().size() < condition.units;
    case Condition::Kind::HoldsNot:
      return !text.Holds(condition.find, condition.mode);
    case Condition::Kind::Holds:
      break;
  }
  return text.Holds(condition.find, condition.mode);
}

void RunSteps(const Chain& chain, const Stage& stage, Rewriting& text) {
  std::uint32_t at = stage.first;
  while (at < stage.first + stage.count) {
    const Step& step = chain.steps[at++];
    if (step.kind == Step::Kind::Scan) {
      step.scan(text);
    } else if (step.kind == Step::Kind::Rules) {
      for (const Rule& rule : chain.rules.subspan(step.first, step.count)) {
        text.Replace(rule.find, rule.with, rule.mode, rule.limit);
      }
    } else {
      const auto conditions = chain.conditions.subspan(step.first, step.count);
      const bool met = std::all_of(conditions.begin(), conditions.end(),
                                   [&](const Condition& condition) { return Met(condition, text); });
      if (!met) at = step.skip;
    }
  }
}

}  // namespace

void Run(const Chain& chain, Rewriting& text) {
  for (const Stage& stage : chain.stages) RunSteps(chain, stage, text);
}

void RunStage(const Chain& chain, int stage, Rewriting& text) {
  if (stage < 1 || static_cast<std::size_t>(stage) > chain.stages.size()) {
    throw Failure(Failure::Kind::Subscript);
  }
  RunSteps(chain, chain.stages[static_cast<std::size_t>(stage) - 1], text);
}

}  // namespace quillary::rules

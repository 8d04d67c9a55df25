#include "rules/run.h"

#include <algorithm>

#include "rules/firing_log.h"
#include "rules/skip_check.h"
#include "text/failure.h"
#include "text/search.h"

namespace quillary::rules {
namespace {

bool Met(const Chain& chain, const Condition& condition, Rewriting& text) {
  switch (condition.kind) {
    case Condition::Kind::ShorterThan:
      return text.text().size() < condition.units;
    case Condition::Kind::HoldsNot:
    case Condition::Kind::Holds:
      break;
  }
  const Stretches where = text.Where(condition.find, chain.GramsOf(condition));
  const bool holds = text.FirstWhere(where, condition.find, condition.mode) != Finder::npos;
  return holds == (condition.kind == Condition::Kind::Holds);
}

// Applies a rule and notes it if it fires.
void ApplyLogged(const Chain& chain, int stage, const Rule& rule, Stretches where, Rewriting& text) {
  const std::size_t hit = text.FirstWhere(where, rule.find, rule.mode);
  if (hit == Finder::npos) return;
  const std::size_t start = hit - std::min(hit, FiringLog::kMargin);
  Text before = text.text().substr(start, hit - start + rule.find.size() + FiringLog::kMargin);
  const std::size_t count = text.ReplaceWhere(where, rule.find, rule.with, rule.mode, rule.limit);
  Firing& row = text.log()->Row(chain, stage, rule);
  if (row.count == 0) {
    row.before = std::move(before);
    row.after = text.text().substr(start, hit - start + rule.with.size() + FiringLog::kMargin);
  }
  row.count += count;
}

void RunRules(const Chain& chain, int stage, const Part& part, Rewriting& text) {
  text.Expect(part.count);
  if (part.gram != 0 && !text.MayHold(part.gram)) {
    for (const Rule& rule : chain.rules.subspan(part.first, part.count)) CheckSkipped(rule, text);
    return;
  }
  for (std::uint32_t i = part.first; i < part.first + part.count; ++i) {
    const Rule& rule = chain.rules[i];
    const std::uint32_t gram = chain.first_grams[i];
    const Stretches where = gram != 0 && !text.MayHold(gram) ? 0 : text.Where(rule.find, chain.GramsOf(rule));
    if (where == 0) {
      CheckSkipped(rule, text);
    } else if (text.log() != nullptr) {
      ApplyLogged(chain, stage, rule, where, text);
    } else {
      text.ReplaceWhere(where, rule.find, rule.with, rule.mode, rule.limit);
    }
  }
}

void RunParts(const Chain& chain, int stage, Rewriting& text, void* state) {
  const Stage& parts = chain.stages[static_cast<std::size_t>(stage) - 1];
  std::uint32_t at = parts.first;
  while (at < parts.first + parts.count) {
    const Part& part = chain.parts[at++];
    switch (part.kind) {
      case Part::Kind::Scan:
        part.scan(text, state);
        break;
      case Part::Kind::Rules:
        RunRules(chain, stage, part, text);
        break;
      case Part::Kind::Guard: {
        const auto conditions = chain.conditions.subspan(part.first, part.count);
        const bool met = std::all_of(conditions.begin(), conditions.end(),
                                     [&](const Condition& condition) { return Met(chain, condition, text); });
        if (!met) at = part.skip;
        break;
      }
    }
  }
}

}  // namespace

void Run(const Chain& chain, Rewriting& text, void* state) {
  for (int stage = 1; stage <= static_cast<int>(chain.stages.size()); ++stage) {
    text.Expect(chain.rules.size());
    RunParts(chain, stage, text, state);
  }
}

void RunStage(const Chain& chain, int stage, Rewriting& text, void* state) {
  if (stage < 1 || static_cast<std::size_t>(stage) > chain.stages.size()) {
    throw Failure(Failure::Kind::Subscript);
  }
  RunParts(chain, stage, text, state);
}

}  // namespace quillary::rules

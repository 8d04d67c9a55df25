#include "rules/listing.h"

#include "rules/notation.h"

namespace quillary::rules {
namespace {

struct OpenGuard {
  std::uint32_t end = 0;
  Text text;
};

Text Joined(const std::vector<OpenGuard>& guards) {
  Text joined;
  for (const OpenGuard& guard : guards) joined += (joined.empty() ? u"" : u" and ") + guard.text;
  return joined;
}

}  // namespace

std::vector<RuleRow> ListRules(const Chain& chain) {
  std::vector<RuleRow> rows;
  std::vector<OpenGuard> guards;
  int number = 0;
  for (const Stage& stage : chain.stages) {
    ++number;
    for (std::uint32_t at = stage.first; at < stage.first + stage.count; ++at) {
      while (!guards.empty() && guards.back().end <= at) guards.pop_back();
      const Step& step = chain.steps[at];
      if (step.kind == Step::Kind::Guard) {
        OpenGuard guard{step.skip, u""};
        for (const Condition& condition : chain.conditions.subspan(step.first, step.count)) {
          guard.text += (guard.text.empty() ? u"" : u" and ") + Written(condition);
        }
        guards.push_back(std::move(guard));
      } else if (step.kind == Step::Kind::Rules) {
        for (const Rule& rule : chain.rules.subspan(step.first, step.count)) {
          rows.push_back({&chain, number, &rule, Joined(guards)});
        }
      }
    }
    guards.clear();
  }
  return rows;
}

std::string Where(const Chain& chain, const Rule& rule) {
  return std::string(chain.file) + ":" + std::to_string(rule.line);
}

}  // namespace quillary::rules

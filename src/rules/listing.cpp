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
      const Part& part = chain.parts[at];
      if (part.kind == Part::Kind::Guard) {
        OpenGuard guard{part.skip, u""};
        for (const Condition& condition : chain.conditions.subspan(part.first, part.count)) {
          guard.text += (guard.text.empty() ? u"" : u" and ") + Written(condition);
        }
        guards.push_back(std::move(guard));
      } else if (part.kind == Part::Kind::Rules) {
        for (const Rule& rule : chain.rules.subspan(part.first, part.count)) {
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

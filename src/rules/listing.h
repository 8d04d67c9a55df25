// The rules as rows, for people and tests.
#pragma once

#include <string>
#include <vector>

#include "rules/rule.h"

namespace quillary::rules {

struct RuleRow {
  const Chain* chain = nullptr;
  int stage = 0;
  const Rule* rule = nullptr;
  /// All guards over the rule, the outermost first, in the rule language.
  Text guard;
};

/// Every rule of the chain in running order.
std::vector<RuleRow> ListRules(const Chain& chain);

/// "src/links/foo.rules:12"
std::string Where(const Chain& chain, const Rule& rule);

}  // namespace quillary::rules

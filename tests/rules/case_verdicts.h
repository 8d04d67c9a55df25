// Whether rules do what a case promises, and which of them fired.
#pragma once

#include <set>

#include "rules/case_file.h"
#include "rules/rule.h"

namespace quillary {

using Fired = std::set<const rules::Rule*>;

/// What targets make of a text.
struct Outcome {
  Text text;
  Fired fired;
  std::string unknown;  // a target that does not exist
};

/// `changed`, unless null, runs in place of the chain of its name.
Outcome RanOver(const std::vector<CaseTarget>& targets, const Text& text,
                const rules::Chain* changed = nullptr);

/// A text as a case file writes it.
std::string Spelled(TextView text);

struct Verdict {
  std::size_t line = 0;
  Fired fired;          // by a case that holds
  std::string failure;  // empty if it holds
};

Verdict Judge(const RuleCase& one, const rules::Chain* changed = nullptr);

}  // namespace quillary

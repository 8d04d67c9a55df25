// Whether the cases of a file notice that one of its rules has changed.
#pragma once

#include <vector>

#include "rules/case_verdicts.h"

namespace quillary {

/// A copy of a chain in which one rule is changed.
class ChangedChain {
 public:
  ChangedChain(const rules::Chain& chain, const rules::Rule& rule, Change change);
  ChangedChain(const ChangedChain&) = delete;
  ChangedChain& operator=(const ChangedChain&) = delete;

  const rules::Chain& chain() const { return chain_; }

 private:
  std::vector<rules::Rule> rules_;
  rules::Chain chain_;
};

/// Whether the rule has what would change: a limit, or for the compare mode a
/// letter with two cases outside of sentinels.
bool CanChange(const rules::Rule& rule, Change change, const rulec::Names& sentinels);

/// The cases that hold.
class HeldCases {
 public:
  explicit HeldCases(const CaseFile& file);

  bool Fires(const rules::Rule& rule) const;
  /// Whether a case fails with the changed rule.
  bool Notices(const rules::Chain& chain, const rules::Rule& rule, Change change) const;

 private:
  struct Held {
    RuleCase one;
    Fired fired;
  };
  std::vector<Held> held_;
};

}  // namespace quillary

// Which rules fired on a text, how often, and what the first hit looked like.
// Off by default: a text under rewriting without a log pays nothing for it.
#pragma once

#include <cstddef>
#include <unordered_map>
#include <vector>

#include "rules/rule.h"

namespace quillary::rules {

struct Firing {
  const Chain* chain = nullptr;
  int stage = 0;  // counts from 1
  const Rule* rule = nullptr;
  std::size_t count = 0;
  Text before;  // the surroundings of the first hit
  Text after;
};

class FiringLog {
 public:
  /// Units shown on either side of a hit.
  static constexpr std::size_t kMargin = 24;

  /// In the order in which the rules first fired.
  const std::vector<Firing>& firings() const { return firings_; }

  /// The row of a rule; a new one has the count 0.
  Firing& Row(const Chain& chain, int stage, const Rule& rule);

 private:
  std::vector<Firing> firings_;
  std::unordered_map<const Rule*, std::size_t> rows_;
};

}  // namespace quillary::rules

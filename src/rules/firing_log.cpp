#include "rules/firing_log.h"

namespace quillary::rules {

Firing& FiringLog::Row(const Chain& chain, int stage, const Rule& rule) {
  const auto [row, is_new] = rows_.try_emplace(&rule, firings_.size());
  if (is_new) firings_.push_back({&chain, stage, &rule, 0, u"", u""});
  return firings_[row->second];
}

}  // namespace quillary::rules

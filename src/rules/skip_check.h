// In a check build every rule that the index lets the run skip is searched for
// all the same: it must not be there. In any other build this is nothing.
#pragma once

#include "rules/rewriting.h"
#include "rules/rule.h"

#ifdef QUILLARY_CHECK_SKIPS
#include <stdexcept>
#endif

namespace quillary::rules {

#ifdef QUILLARY_CHECK_SKIPS
inline void CheckSkipped(const Rule& rule, const Rewriting& text) {
  if (quillary::Holds(text.text(), rule.find, rule.mode))
    throw std::logic_error("a rule that matches was skipped");
}
#else
inline void CheckSkipped(const Rule&, const Rewriting&) {}
#endif

}  // namespace quillary::rules

// Running chains. A run gives exactly what replacing rule by rule, in order,
// over the whole text gives.
#pragma once

#include <utility>

#include "rules/rewriting.h"
#include "rules/rule.h"

namespace quillary::rules {

void Run(const Chain& chain, Rewriting& text);

/// The whole chain over a text of its own.
inline Text RunOver(const Chain& chain, Text text) {
  Rewriting rewriting(std::move(text));
  Run(chain, rewriting);
  return rewriting.Take();
}

/// The same with the limit and the firing log of an apartment, which may be null.
template <class Home>
Text RunOver(const Chain& chain, Text text, Home* apartment) {
  Rewriting rewriting(std::move(text), apartment);
  Run(chain, rewriting);
  return rewriting.Take();
}

/// One stage alone; stages count from 1. Throws Failure (subscript) for a
/// number outside the chain.
void RunStage(const Chain& chain, int stage, Rewriting& text);

}  // namespace quillary::rules

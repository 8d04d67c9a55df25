// Running chains. A run gives exactly what replacing rule by rule, in order,
// over the whole text gives.
#pragma once

#include <utility>

#include "rules/rewriting.h"
#include "rules/rule.h"

namespace quillary::rules {

/// Runs a chain that is known at run time only. `state` is what its scans need,
/// of the type that the chain names; null where it names none.
void Run(const Chain& chain, Rewriting& text, void* state);

/// One stage of it alone; stages count from 1. Throws Failure (subscript) for a
/// number outside the chain.
void RunStage(const Chain& chain, int stage, Rewriting& text, void* state);

/// The same for chains that the compiler knows.
inline void Run(const Chain& chain, Rewriting& text) { Run(chain, text, nullptr); }
inline void RunStage(const Chain& chain, int stage, Rewriting& text) {
  RunStage(chain, stage, text, nullptr);
}
template <class State>
void Run(const ChainWith<State>& chain, Rewriting& text) = delete;
template <class State>
void RunStage(const ChainWith<State>& chain, int stage, Rewriting& text) = delete;
template <class State>
void Run(const ChainWith<State>& chain, Rewriting& text, State& state) {
  Run(static_cast<const Chain&>(chain), text, &state);
}

/// The whole chain over a text of its own.
inline Text RunOver(const Chain& chain, Rewriting text) {
  Run(chain, text);
  return text.Take();
}
inline Text RunOver(const Chain& chain, Text text) { return RunOver(chain, Rewriting(std::move(text))); }

}  // namespace quillary::rules

// Running chains. A run gives exactly what replacing rule by rule, in order,
// over the whole text gives.
#pragma once

#include "rules/rewriting.h"
#include "rules/rule.h"

namespace quillary::rules {

void Run(const Chain& chain, Rewriting& text);

/// One stage alone; stages count from 1. Throws Failure (subscript) for a
/// number outside the chain.
void RunStage(const Chain& chain, int stage, Rewriting& text);

}  // namespace quillary::rules

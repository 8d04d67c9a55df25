// Every chain of the program.
#pragma once

#include <span>

#include "rules/rule.h"

namespace quillary::rules {

/// In running order.
std::span<const Chain* const> AllChains();

}  // namespace quillary::rules

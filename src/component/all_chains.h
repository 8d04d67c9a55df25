// Every chain of the program.
#pragma once

#include <span>

#include "rules/rule.h"

namespace quillary::component {

/// In running order: those of the steps from RTF to HTML, those that the entry points
/// run on the finished page and on the page header, those of the steps from HTML to RTF.
std::span<const rules::Chain* const> AllChains();

}  // namespace quillary::component

// Rules as text: how rule files write them. What this writes can be pasted into
// a rule file; nothing else writes rules.
#pragma once

#include "rules/rule.h"

namespace quillary::rules {

/// Whether nobody can tell by eye which unit stands at the index, or that one
/// does: controls, special spaces, joiners, private use, half of a pair. A
/// literal writes such a unit by its number, \u{A0}.
bool IsInvisible(TextView text, std::size_t at);

/// A literal between ⟨ ⟩, with spaces, line ends and invisible units visible.
Text Written(TextView literal);

/// "not ⟨x⟩ binary" or "shorter than 12"
Text Written(const Condition& condition);

/// "⟨a⟩ -> ⟨b⟩ binary first 2"
Text Written(const Rule& rule);

}  // namespace quillary::rules

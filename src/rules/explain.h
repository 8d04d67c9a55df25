// What the rules did to a text, told to a person.
#pragma once

#include <span>
#include <vector>

#include "rules/firing_log.h"

namespace quillary::rules {

/// Runs the chains one behind the other over the text and tells which rules
/// fired, in the order in which each first did.
std::vector<Firing> Explain(std::span<const Chain* const> chains, Text text);

/// A literal as rule files show it: blanks and line ends visible, between ⟨ ⟩.
Text Shown(TextView literal);

/// A rule that fired, in a few lines: its place in the rule file, how often,
/// and the surroundings of its first hit before and after.
Text Described(const Firing& firing);

}  // namespace quillary::rules

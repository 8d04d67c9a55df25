// Case files: texts as documents bring them, and what rules must make of them.
// docs/rule-cases.md describes the format.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "rule_file.h"

namespace quillary {

/// A chain, or one stage of it where `stage` is not empty.
struct CaseTarget {
  std::string chain;
  std::string stage;
};

/// A text that the targets, one after the other, turn into another.
struct RuleCase {
  std::size_t line = 0;
  std::vector<CaseTarget> targets;
  Text from;
  Text to;
  bool any_case = false;
};

/// Rules that no text can fire: those of one stage with that find text.
struct Unreachable {
  std::size_t line = 0;
  CaseTarget target;
  Text find;
};

struct CaseFile {
  std::vector<RuleCase> changes;
  std::vector<RuleCase> keeps;
  std::vector<Unreachable> unreachable;
};

/// Throws rulec::Malformed. Families are written out.
CaseFile ReadCases(std::string_view source, const rulec::Sentinels& sentinels);

/// The text with the case of every ASCII letter turned round, except inside
/// sentinels, which no document holds and no rule meets in another case.
Text CaseToggled(const Text& text, const rulec::Sentinels& sentinels);

}  // namespace quillary

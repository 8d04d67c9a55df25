// Case files: texts as documents bring them, and what rules must make of them.
// docs/rule-cases.md describes the format.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "rule_file.h"

namespace quillary {

/// What could go wrong with a rule.
enum class Change {
  Dropped,
  Flipped,   // the other compare mode
  Unlimited  // without its limit
};

inline constexpr std::pair<Change, std::string_view> kAllChanges[] = {
    {Change::Dropped, "dropped"}, {Change::Flipped, "flipped"}, {Change::Unlimited, "unlimited"}};

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
  bool folded = false;  // compared without regard to case
};

/// Rules that a line speaks of: those of one stage with that find text.
struct NamedRules {
  std::size_t line = 0;
  CaseTarget target;
  Text find;
};

struct CaseFile {
  std::vector<RuleCase> changes;
  std::vector<RuleCase> keeps;
  std::vector<NamedRules> unreachable;
  std::map<Change, std::vector<NamedRules>> same;
};

/// Throws rulec::Malformed. Families are written out, and an any-case is two
/// changes.
CaseFile ReadCases(std::string_view source, const rulec::Names& sentinels);

/// The text with the case of every ASCII letter turned round, except inside
/// sentinels, which no document holds and no rule meets in another case.
Text CaseToggled(const Text& text, const rulec::Names& sentinels);

}  // namespace quillary

// Rules as constant tables. rulec makes them from .rules files; nobody writes
// them by hand.
#pragma once

#include <cstdint>
#include <span>

#include "text/text.h"

namespace quillary::rules {

class Rewriting;

/// One literal replacement.
struct Rule {
  TextView find;
  TextView with;
  Compare mode = Compare::Binary;
  std::int32_t limit = -1;  // at most so many replacements; below 0 all
  std::uint32_t line = 0;   // of the rule file
};

/// What a guard asks of the text.
struct Condition {
  enum class Kind : std::uint8_t { Holds, HoldsNot, ShorterThan };
  Kind kind = Kind::Holds;
  TextView find;
  Compare mode = Compare::Binary;
  std::uint32_t units = 0;  // of ShorterThan
};

/// One step of a stage: a run of rules, a guard over the steps behind it, or
/// a scan written by hand.
struct Step {
  enum class Kind : std::uint8_t { Rules, Guard, Scan };
  Kind kind = Kind::Rules;
  std::uint32_t first = 0;  // of the chain's rules, or of its conditions
  std::uint32_t count = 0;
  std::uint32_t skip = 0;  // a guard that fails goes on at this step of the chain
  void (*scan)(Rewriting&) = nullptr;
  const char* name = nullptr;  // of the scan
};

struct Stage {
  const char* name = nullptr;
  const char* purpose = nullptr;
  std::uint32_t first = 0;  // of the chain's steps
  std::uint32_t count = 0;
};

/// Stages in running order. Everything is constant and lives as long as the
/// program.
struct Chain {
  const char* name = nullptr;
  const char* file = nullptr;
  std::span<const Stage> stages;
  std::span<const Step> steps;
  std::span<const Rule> rules;
  std::span<const Condition> conditions;
};

}  // namespace quillary::rules

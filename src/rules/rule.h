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
  std::uint32_t grams = 0;  // first of its hashes in the chain; a single unit has none
  std::uint32_t gram_count = 0;
};

/// What a guard asks of the text.
struct Condition {
  enum class Kind : std::uint8_t { Holds, HoldsNot, ShorterThan };
  Kind kind = Kind::Holds;
  TextView find;
  Compare mode = Compare::Binary;
  std::uint32_t units = 0;  // of ShorterThan
  std::uint32_t grams = 0;
  std::uint32_t gram_count = 0;
};

/// One part of a stage: a run of rules, a guard over the parts after it, or
/// a scan written by hand.
struct Part {
  enum class Kind : std::uint8_t { Rules, Guard, Scan };
  Kind kind = Kind::Rules;
  std::uint32_t first = 0;  // of the chain's rules, or of its conditions
  std::uint32_t count = 0;
  std::uint32_t skip = 0;  // a guard that fails goes on at this part of the chain
  std::uint32_t gram = 0;  // where not 0: a run that all find texts of these rules share
  void (*scan)(Rewriting&, void* state) = nullptr;
  const char* name = nullptr;  // of the scan
};

struct Stage {
  const char* name = nullptr;
  const char* purpose = nullptr;
  std::uint32_t first = 0;  // of the chain's parts
  std::uint32_t count = 0;
};

/// Stages in running order. Everything is constant and lives as long as the
/// program.
struct Chain {
  const char* name = nullptr;
  const char* file = nullptr;
  /// The type of the state that its scans read or change, null if they need none.
  const char* state = nullptr;
  std::span<const Stage> stages;
  std::span<const Part> parts;
  std::span<const Rule> rules;
  std::span<const Condition> conditions;
  std::span<const std::uint32_t> grams;
  /// For each rule the hash that is asked first; 0 where there is none.
  std::span<const std::uint32_t> first_grams;

  std::span<const std::uint32_t> GramsOf(const Rule& rule) const {
    return grams.subspan(rule.grams, rule.gram_count);
  }
  std::span<const std::uint32_t> GramsOf(const Condition& condition) const {
    return grams.subspan(condition.grams, condition.gram_count);
  }
};

/// A chain whose scans read or change a State.
template <class State>
struct ChainWith : Chain {};

}  // namespace quillary::rules

// Chains with every family written out: the flat tables that are compiled in.
#pragma once

#include <string>
#include <vector>

#include "rule_file.h"

namespace quillary::rulec {

struct FlatRule {
  Text find;
  Text with;
  Compare mode = Compare::Binary;
  std::int32_t limit = -1;
  std::size_t line = 0;
};

struct FlatCondition {
  Asked::Kind kind = Asked::Kind::Holds;
  Text find;
  Compare mode = Compare::Binary;
  std::uint32_t units = 0;
};

/// As rules::Part; indices count over the chain.
struct FlatPart {
  enum class Kind { Rules, Guard, Scan };
  Kind kind = Kind::Rules;
  std::size_t first = 0;
  std::size_t count = 0;
  std::size_t skip = 0;
  std::string scan;
  StateUse state_use = StateUse::None;
  std::uint32_t gram = 0;
};

struct FlatStage {
  std::string name;
  std::string purpose;
  std::size_t first = 0;
  std::size_t count = 0;
};

struct FlatChain {
  std::string name;
  std::string scan_namespace;
  std::string state;
  std::vector<FlatStage> stages;
  std::vector<FlatPart> parts;
  std::vector<FlatRule> rules;
  std::vector<FlatCondition> conditions;
};

/// Throws Malformed.
FlatChain Expand(const ChainSource& source);

}  // namespace quillary::rulec

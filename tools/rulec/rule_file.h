// A rule file as it is written: chains of stages, with families, guards and
// sentinels not yet put in.
#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "text/encodings.h"
#include "text/text.h"

namespace quillary::rulec {

/// Something wrong with a rule file, at a line of it.
class Malformed : public std::runtime_error {
 public:
  Malformed(std::size_t line, const std::string& cause) : std::runtime_error(cause), line_(line) {}
  std::size_t line() const { return line_; }

 private:
  std::size_t line_;
};

/// A text that literals may write as ‹name›: a sentinel, which C++ code knows
/// too, or a text that stands so often in rules that it was given a name.
struct Named {
  enum class Kind { Sentinel, Literal };
  Kind kind = Kind::Sentinel;
  std::string name;
  Text text;
  std::string meaning;
  std::size_t line = 0;
};
using Names = std::vector<Named>;

/// A literal is a row of texts and placeholders.
struct Piece {
  bool is_placeholder = false;
  std::string placeholder;
  Text text;
};
using Literal = std::vector<Piece>;

/// A placeholder and the values it runs over.
struct Family {
  std::string placeholder;
  std::vector<Text> values;
};

struct Asked {
  enum class Kind { Holds, HoldsNot, ShorterThan };
  Kind kind = Kind::Holds;
  Literal find;
  Compare mode = Compare::Binary;
  std::uint32_t units = 0;
};

/// What a scan does with the state of its chain.
enum class StateUse { None, Reads, Changes };

struct Node {
  enum class Kind { Rule, When, For, Scan };
  Kind kind = Kind::Rule;
  std::size_t line = 0;
  Literal find;  // of a rule
  Literal with;
  Compare mode = Compare::Binary;
  std::int32_t limit = -1;
  std::vector<Family> families;   // of a rule or a for block, the first outermost
  std::vector<Asked> conditions;  // of a guard
  std::string scan;
  StateUse state_use = StateUse::None;  // of a scan
  std::vector<Node> body;               // of a guard or a for block
};

struct StageSource {
  std::string name;
  std::string purpose;
  std::vector<Node> body;
};

struct ChainSource {
  std::string name;
  std::string scan_namespace;
  std::string state;  // the type of the state that its scans use, empty if none does
  Compare mode = Compare::Binary;
  std::vector<StageSource> stages;
};

/// The names that all rule files share, "sentinels.rules"; adds those that it
/// uses itself to `used`, unless that is null. Throws Malformed.
Names ReadSentinels(std::string_view source, std::set<std::string>* used = nullptr);

/// Adds the shared names that the file uses to `used`, unless that is null.
/// Throws Malformed.
std::vector<ChainSource> ReadRules(std::string_view source, const Names& shared,
                                   const std::string& default_namespace,
                                   std::set<std::string>* used = nullptr);

/// Throws Malformed for a shared literal that no rule file uses. A sentinel
/// may be used by code alone.
void CheckAllUsed(const Names& shared, const std::set<std::string>& used);

class Line;
/// The families after a "for" that stands outside a rule file.
std::vector<Family> ReadFamilies(Line& line, const Names& names);

}  // namespace quillary::rulec

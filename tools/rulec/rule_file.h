// A rule file as it is written: chains of stages, with families, guards and
// sentinels not yet put in.
#pragma once

#include <cstddef>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

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

struct Sentinel {
  std::string name;
  Text text;
  std::string meaning;
};
using Sentinels = std::vector<Sentinel>;

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
  std::vector<Node> body;  // of a guard or a for block
};

struct StageSource {
  std::string name;
  std::string purpose;
  std::vector<Node> body;
};

struct ChainSource {
  std::string name;
  std::string scan_namespace;
  Compare mode = Compare::Binary;
  std::vector<StageSource> stages;
};

/// Throws Malformed.
Sentinels ReadSentinels(std::string_view source);
std::vector<ChainSource> ReadRules(std::string_view source, const Sentinels& sentinels,
                                   const std::string& default_namespace);

class Line;
/// The families after a "for" that stands outside a rule file.
std::vector<Family> ReadFamilies(Line& line, const Sentinels& sentinels);

Text FromUtf8(std::string_view bytes);
std::string ToUtf8(TextView text);

}  // namespace quillary::rulec

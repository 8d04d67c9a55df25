// Finds the leftmost occurrence of any literal of a list in the lower-cased
// reading of a text, in one pass over the text.
#pragma once

#include <bitset>
#include <optional>
#include <vector>

#include "text/text.h"

namespace quillary::links {

class LeftmostLiteral {
 public:
  struct Hit {
    std::size_t offset;  // 0-based
    TextView literal;
  };

  /// Entries 1 to `last` of the list, which must outlive the object. Throws
  /// Failure (subscript) if the list was never sized or is shorter.
  LeftmostLiteral(const TextList& list, std::int32_t last);

  /// The same literals without those that hold `text`.
  LeftmostLiteral Without(TextView text) const;

  /// The first occurrence at or after `from` and before `before` (0-based). Of two
  /// literals at one offset the earlier in the list wins. An empty literal
  /// stands everywhere.
  std::optional<Hit> Next(TextView text, std::size_t from, std::size_t before) const;

  /// Whether the unit, lower-cased, is itself a literal.
  bool HasUnit(char16_t unit) const;

 private:
  LeftmostLiteral() = default;
  void Add(TextView literal);
  static std::size_t PairIndex(char16_t first, char16_t second);

  std::vector<TextView> literals_;
  // The two units that begin a literal, by their low bytes: what is not in
  // here begins none.
  std::bitset<0x10000> pairs_;
  std::bitset<0x10000> units_;
};

}  // namespace quillary::links

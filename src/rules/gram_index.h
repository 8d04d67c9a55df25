// What occurs in a text, and roughly where: which units, and which runs of two
// and four units, all folded. The answer "no" is certain, "yes" is only a
// maybe.
//
// A long text is divided into up to 64 stretches, and the index says in which
// of them a run may begin. A match belongs to the stretch it begins in, and
// the runs of its first hundred units are indexed there even where they lie
// in the next: so the stretches in which all runs of a find text may begin are
// the only ones to search.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "text/text.h"

namespace quillary::rules {

/// Stretches of a text, a bit for each.
using Stretches = std::uint64_t;

class GramIndex {
 public:
  bool built() const { return built_; }
  void Drop() { built_ = false; }
  void Build(TextView text);

  /// The stretches in which a run with that hash may begin.
  Stretches Where(std::uint32_t gram) const {
    const std::uint64_t word = table_[gram >> shift_];
    return count_ > 1 ? word : word >> (gram % 64) & 1;
  }
  /// The stretches in which `find`, whose runs hash to `grams`, may begin.
  Stretches Where(TextView find, std::span<const std::uint32_t> grams) const;

  std::size_t count() const { return count_; }
  /// Where a stretch begins; that after the last begins at the text's end.
  std::size_t start(std::size_t stretch) const { return starts_[stretch]; }

  /// Follows a pass of replacements: at `places` of the new text stand now
  /// `brought` units where `taken` units stood.
  void Follow(TextView text, std::span<const std::size_t> places, std::size_t taken, std::size_t brought);

  /// Whether so much was added that the index has become useless.
  bool TooFull() const { return bits_set_ > full_; }

 private:
  void SetUnit(char16_t folded) {
    const std::size_t bit = UnitBit(folded);
    units_[bit / 64] |= std::uint64_t{1} << (bit % 64);
  }
  // Units below 256 have a bit of their own, the others share the rest.
  static std::size_t UnitBit(char16_t folded) {
    return folded < 256 ? folded : 256U + ((folded ^ folded >> 8) & 0xFFU);
  }
  void Size(std::size_t units);
  void Index(TextView text, std::size_t stretch);
  void Add(std::uint32_t gram, std::size_t stretch);
  void AddStarts(TextView text, std::size_t from, std::size_t to, std::size_t stretch);
  void AddSeam(TextView text, std::size_t at, std::size_t stretch);
  void MoveStarts(std::size_t units, std::span<const std::size_t> places, std::size_t taken,
                  std::size_t brought);

  std::vector<std::uint64_t> table_;
  std::array<std::uint64_t, 8> units_{};
  std::array<std::size_t, 65> starts_{};
  std::size_t count_ = 1;
  std::size_t bits_set_ = 0;
  std::size_t full_ = 0;  // so many bits are too many
  unsigned shift_ = 0;
  bool built_ = false;
};

}  // namespace quillary::rules

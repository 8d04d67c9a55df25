// A text under rewriting. It answers "does this text hold that literal" from
// an index of what occurs in it before it searches, so that a rule that cannot
// match costs next to nothing.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "rules/gram_index.h"
#include "text/limits.h"
#include "text/search.h"
#include "text/text.h"

namespace quillary::rules {

class FiringLog;

class Rewriting {
 public:
  explicit Rewriting(Text text) : text_(std::move(text)) {}
  /// The same bounded by `limit` units, as set_limit does, with the rules that
  /// fire noted in `log`, which may be null and must outlive the object.
  Rewriting(Text text, std::size_t limit, FiringLog* log)
      : text_(std::move(text)), log_(log), limit_(limit) {}
  Rewriting() = default;

  const Text& text() const { return text_; }

  /// The text never grows beyond so many units: a replacement that would take
  /// it there throws LimitReached and leaves it as it was.
  void set_limit(std::size_t units) { limit_ = units; }
  std::size_t limit() const { return limit_; }
  /// Where rules that fire are noted, or null.
  FiringLog* log() const { return log_; }
  void set_log(FiringLog* log) { log_ = log; }

  /// Puts a text that was changed by hand in place of the old one.
  void Assign(Text text);
  /// The text, to be changed by hand.
  Text& Edit();
  /// The text, which leaves the object empty.
  Text Take();

  bool Holds(TextView find, Compare mode);
  /// As ReplaceIn on the text. Returns whether anything was replaced.
  bool Replace(TextView find, TextView with, Compare mode, std::int32_t limit = -1);

  // For the run of a chain, which knows the hashes of its literals.

  /// Indexes the text now if that pays for so many literals to be asked.
  void Expect(std::size_t literals);
  /// False only if the text certainly holds no literal with that run in it.
  bool MayHold(std::uint32_t gram) const { return !index_.built() || index_.Where(gram) != 0; }
  /// Where `find`, whose runs hash to `grams` (none for a single unit), may
  /// begin; 0 only if the text certainly does not hold it.
  Stretches Where(TextView find, std::span<const std::uint32_t> grams) const;
  /// As Replace, only where the find text may begin. Returns how many.
  std::size_t ReplaceWhere(Stretches where, TextView find, TextView with, Compare mode, std::int32_t limit);
  /// Offset of the first occurrence, from 0, or npos.
  std::size_t FirstWhere(Stretches where, TextView find, Compare mode);

 private:
  Stretches Where(TextView find);
  void Missed(Stretches where);
  std::size_t Next(const Finder& finder, Stretches where, std::size_t from) const;
  std::size_t ReplaceFrom(std::size_t hit, const Finder& finder, Stretches where, TextView with,
                          std::int32_t limit);
  void CloseUp(std::size_t taken, TextView with);
  void Widen(std::size_t taken, TextView with);
  void IndexReplaced(std::size_t taken, std::size_t brought);

  Text text_;
  std::vector<std::size_t> places_;  // where the last replacements stand
  GramIndex index_;
  FiringLog* log_ = nullptr;
  std::size_t limit_ = limits::kWorkingUnits;
  std::size_t unindexed_asks_ = 0;
  std::size_t missed_units_ = 0;  // searched in vain, which a fresh index could have spared
  bool changed_ = false;          // since the index was built
};

}  // namespace quillary::rules

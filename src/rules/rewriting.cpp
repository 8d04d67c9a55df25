#include "rules/rewriting.h"

#include <algorithm>
#include <bit>
#include <functional>

#include "rules/grams.h"
#include "text/case_folding.h"
#include "text/failure.h"
#include "text/search.h"

namespace quillary::rules {
namespace {

// Indexing a text costs about as much as searching it so many times.
constexpr std::size_t kSearchesWorthAnIndex = 16;

// Noting what a replacement brings costs about as much as indexing so many
// units anew.
constexpr std::size_t kUnitsWorthAReplacement = 12;

constexpr std::size_t kMostOwnGrams = 8;

bool LiesWithin(TextView part, const Text& whole) {
  const std::less<> before;
  return !part.empty() && !before(part.data(), whole.data()) &&
         before(part.data(), whole.data() + whole.size());
}

}  // namespace

void Rewriting::Assign(Text text) {
  text_ = std::move(text);
  index_.Drop();
}

Text& Rewriting::Edit() {
  index_.Drop();
  return text_;
}

Text Rewriting::Take() {
  index_.Drop();
  Text taken = std::move(text_);
  text_.clear();
  return taken;
}

void Rewriting::Expect(std::size_t literals) {
  if (index_.built() || literals < kSearchesWorthAnIndex) return;
  index_.Build(text_);
  unindexed_asks_ = 0;
  missed_units_ = 0;
  changed_ = false;
}

// An index gone stale lets through what it would stop were it fresh.
void Rewriting::Missed(Stretches where) {
  if (!changed_ || !index_.built()) return;
  missed_units_ += text_.size() / index_.count() * static_cast<std::size_t>(std::popcount(where));
  if (missed_units_ / kSearchesWorthAnIndex > text_.size()) index_.Drop();
}

Stretches Rewriting::Where(TextView find, std::span<const std::uint32_t> grams) const {
  if (find.empty() || find.size() > text_.size()) return 0;
  return index_.built() ? index_.Where(find, grams) : 1;
}

// For a literal whose hashes nobody has computed yet.
Stretches Rewriting::Where(TextView find) {
  if (!index_.built()) Expect(++unindexed_asks_);
  if (!index_.built() || find.size() < kShortGram || find.size() > text_.size()) return Where(find, {});
  const std::size_t length = GramLength(find.size());
  std::uint32_t grams[kMostOwnGrams];
  std::size_t count = 0;
  // The last runs first: families differ at their ends.
  for (std::size_t left = find.size() - length + 1; left > 0 && count < kMostOwnGrams; ++count) {
    char16_t folded[kLongGram];
    for (std::size_t i = 0; i < length; ++i) folded[i] = FoldUnit(find[left - 1 + i]);
    grams[count] = GramHash(folded, length);
    if (index_.Where(grams[count]) == 0) return 0;
    left -= left > length ? length : 1;
  }
  return index_.Where(find, {grams, count});
}

// The next occurrence at or after `from` that begins in one of the stretches.
std::size_t Rewriting::Next(const Finder& finder, Stretches where, std::size_t from) const {
  if (!index_.built()) return finder.Next(text_, from);
  const std::size_t count = index_.count();
  std::size_t stretch = 0;
  while (true) {
    // Stretches next to each other are searched as one.
    while (stretch < count && ((where >> stretch & 1) == 0 || index_.start(stretch + 1) <= from)) ++stretch;
    if (stretch == count) return Finder::npos;
    const std::size_t start = std::max(from, index_.start(stretch));
    while (stretch < count && (where >> stretch & 1) != 0) ++stretch;
    const std::size_t end = std::min(text_.size(), index_.start(stretch) + finder.length() - 1);
    const std::size_t hit = finder.Next(TextView(text_).substr(0, end), start);
    if (hit != Finder::npos) return hit;
  }
}

std::size_t Rewriting::FirstWhere(Stretches where, TextView find, Compare mode) {
  if (where == 0) return Finder::npos;
  const std::size_t hit = Next(Finder(find, mode), where, 0);
  if (hit == Finder::npos) Missed(where);
  return hit;
}

std::size_t Rewriting::ReplaceWhere(Stretches where, TextView find, TextView with, Compare mode,
                                    std::int32_t limit) {
  if (where == 0 || limit == 0) return 0;
  const Finder finder(find, mode);
  const std::size_t hit = Next(finder, where, 0);
  if (hit != Finder::npos) return ReplaceFrom(hit, finder, where, with, limit);
  Missed(where);
  return 0;
}

bool Rewriting::Holds(TextView find, Compare mode) {
  if (find.empty()) return !text_.empty();
  return FirstWhere(Where(find), find, mode) != Finder::npos;
}

bool Rewriting::Replace(TextView find, TextView with, Compare mode, std::int32_t limit) {
  const Stretches where = Where(find);
  if (!LiesWithin(find, text_) && !LiesWithin(with, text_)) {
    return ReplaceWhere(where, find, with, mode, limit) > 0;
  }
  const Text own_find(find);
  const Text own_with(with);
  return ReplaceWhere(where, own_find, own_with, mode, limit) > 0;
}

std::size_t Rewriting::ReplaceFrom(std::size_t hit, const Finder& finder, Stretches where, TextView with,
                                   std::int32_t limit) {
  places_.clear();
  for (; hit != Finder::npos; hit = Next(finder, where, hit + finder.length())) {
    places_.push_back(hit);
    if (limit > 0 && places_.size() == static_cast<std::size_t>(limit)) break;
  }
  const std::size_t count = places_.size();
  if (with.size() > finder.length()) {
    const std::size_t more = count * (with.size() - finder.length());
    if (more > limit_ || text_.size() > limit_ - more) throw LimitReached(LimitReached::Limit::Growth);
    Widen(finder.length(), with);
  } else {
    CloseUp(finder.length(), with);
  }
  IndexReplaced(finder.length(), with.size());
  return count;
}

// Puts `with`, which is no longer than what it replaces, at the places found,
// which become those of the new text.
void Rewriting::CloseUp(std::size_t taken, TextView with) {
  using Units = std::char_traits<char16_t>;
  char16_t* const units = text_.data();
  std::size_t written = places_[0];
  for (std::size_t i = 0; i < places_.size(); ++i) {
    const std::size_t from = places_[i] + taken;
    const std::size_t to = i + 1 < places_.size() ? places_[i + 1] : text_.size();
    places_[i] = written;
    Units::copy(units + written, with.data(), with.size());
    written += with.size();
    if (written != from) Units::move(units + written, units + from, to - from);
    written += to - from;
  }
  text_.resize(written);
}

// The same for a longer one, from the end of the text backwards.
void Rewriting::Widen(std::size_t taken, TextView with) {
  using Units = std::char_traits<char16_t>;
  const std::size_t more = with.size() - taken;
  std::size_t to = text_.size();
  text_.resize(text_.size() + places_.size() * more);
  char16_t* const units = text_.data();
  for (std::size_t i = places_.size(); i > 0; --i) {
    const std::size_t from = places_[i - 1] + taken;
    Units::move(units + from + i * more, units + from, to - from);
    to = places_[i - 1];
    places_[i - 1] = to + (i - 1) * more;
    Units::copy(units + places_[i - 1], with.data(), with.size());
  }
}

void Rewriting::IndexReplaced(std::size_t taken, std::size_t brought) {
  if (!index_.built()) return;
  changed_ = true;
  if (places_.size() * kUnitsWorthAReplacement > text_.size()) {
    index_.Drop();
    return;
  }
  index_.Follow(text_, places_, taken, brought);
  if (index_.TooFull()) index_.Drop();
}

}  // namespace quillary::rules

#include "rules/gram_index.h"

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include <algorithm>
#include <bit>

#include "rules/grams.h"
#include "text/case_folding.h"

namespace quillary::rules {
namespace {

constexpr std::size_t kMostStretches = 64;
constexpr std::size_t kShortestStretch = 1024;
constexpr std::size_t kLongestUndivided = 4096;

// Runs are indexed under a stretch so far beyond its end; a longer find text
// is not placed at all.
constexpr std::size_t kMargin = 128;

constexpr std::size_t kSmallestTable = 16;
constexpr std::size_t kSmallestDividedTable = std::size_t{1} << 12;
constexpr std::size_t kLargestTable = std::size_t{1} << 17;

constexpr std::size_t kChunkUnits = 1024;

void Fold(const char16_t* from, std::size_t count, char16_t* to) {
  const char16_t* table = FoldTable();
  std::size_t at = 0;
#ifdef __SSE2__
  // Eight units at a time while all of them are ASCII.
  const __m128i beyond_ascii = _mm_set1_epi16(static_cast<short>(0xFF80));
  const __m128i below_a = _mm_set1_epi16('A' - 1);
  const __m128i above_z = _mm_set1_epi16('Z' + 1);
  const __m128i case_bit = _mm_set1_epi16(0x20);
  for (; at + 8 <= count; at += 8) {
    const __m128i units = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from + at));
    const __m128i others = _mm_and_si128(units, beyond_ascii);
    if (_mm_movemask_epi8(_mm_cmpeq_epi16(others, _mm_setzero_si128())) != 0xFFFF) {
      for (std::size_t i = at; i < at + 8; ++i) to[i] = table[from[i]];
      continue;
    }
    const __m128i upper = _mm_and_si128(_mm_cmpgt_epi16(units, below_a), _mm_cmplt_epi16(units, above_z));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to + at),
                     _mm_or_si128(units, _mm_and_si128(upper, case_bit)));
  }
#endif
  for (; at < count; ++at) to[at] = table[from[at]];
}

// All stretches from the first to the last.
Stretches UpTo(std::size_t count) { return ~Stretches{0} >> (kMostStretches - count); }

Stretches Bit(std::size_t stretch) { return Stretches{1} << stretch; }

}  // namespace

Stretches GramIndex::Where(TextView find, std::span<const std::uint32_t> grams) const {
  Stretches where = UpTo(count_);
  if (find.size() == 1) {
    const std::size_t bit = UnitBit(FoldUnit(find[0]));
    return (units_[bit / 64] >> (bit % 64) & 1) != 0 ? where : 0;
  }
  const bool placed = find.size() <= kMargin;
  for (const std::uint32_t gram : grams) {
    const Stretches begins = Where(gram);
    if (begins == 0) return 0;
    if (placed) where &= begins;
  }
  return where;
}

// Chooses the stretches and the table for a text of so many units. The table
// has a word for each hash; an undivided text has a bit for each.
void GramIndex::Size(std::size_t units) {
  std::size_t words = kSmallestTable;
  count_ = 1;
  if (units <= kLongestUndivided) {
    words = std::max(words, std::bit_ceil(units) / 2);
  } else {
    count_ = std::min(units / kShortestStretch, kMostStretches);
    words = std::clamp(std::bit_ceil(units / count_ * 4), kSmallestDividedTable, kLargestTable);
  }
  for (std::size_t i = 0; i <= count_; ++i) starts_[i] = units / count_ * i;
  starts_[count_] = units;
  table_.assign(words, 0);
  shift_ = 32U - static_cast<unsigned>(std::countr_zero(words));
}

void GramIndex::Build(TextView text) {
  Size(text.size());
  units_.fill(0);
  for (std::size_t stretch = 0; stretch < count_; ++stretch) Index(text, stretch);
  bits_set_ = 0;
  for (const std::uint64_t word : table_) bits_set_ += static_cast<std::size_t>(std::popcount(word));
  full_ = std::max(table_.size() * 24, bits_set_ + table_.size() * 4);
  built_ = true;
}

void GramIndex::Index(TextView text, std::size_t stretch) {
  const std::size_t end = std::min(text.size(), starts_[stretch + 1] + (count_ > 1 ? kMargin : 0));
  const std::uint64_t own = Bit(stretch);
  const bool divided = count_ > 1;
  std::uint64_t* const table = table_.data();
  const auto set = [&](std::uint32_t gram) {
    table[gram >> shift_] |= divided ? own : std::uint64_t{1} << (gram % 64);
  };
  // Chunks overlap, so that every run lies whole in one of them.
  char16_t folded[kChunkUnits + kLongGram];
  for (std::size_t start = starts_[stretch]; start < end; start += kChunkUnits) {
    const std::size_t starts = std::min(end - start, kChunkUnits);
    const std::size_t count = std::min(text.size() - start, starts + kLongGram - 1);
    Fold(text.data() + start, count, folded);
    const std::size_t whole = count < kLongGram ? 0 : std::min(starts, count - kLongGram + 1);
    for (std::size_t i = 0; i < whole; ++i) {
      SetUnit(folded[i]);
      set(ShortHash(folded + i));
      set(LongHash(folded + i));
    }
    for (std::size_t i = whole; i < starts; ++i) {
      SetUnit(folded[i]);
      if (i + kShortGram <= count) set(ShortHash(folded + i));
    }
  }
}

void GramIndex::Add(std::uint32_t gram, std::size_t stretch) {
  std::uint64_t& word = table_[gram >> shift_];
  const std::uint64_t bit = Bit(count_ > 1 ? stretch : gram % 64);
  bits_set_ += (word & bit) == 0;
  word |= bit;
}

// Adds the units of [from, to) and all runs that begin there.
void GramIndex::AddStarts(TextView text, std::size_t from, std::size_t to, std::size_t stretch) {
  for (std::size_t at = from; at < to; ++at) {
    char16_t folded[kLongGram];
    const std::size_t count = std::min(kLongGram, text.size() - at);
    for (std::size_t i = 0; i < count; ++i) folded[i] = FoldUnit(text[at + i]);
    SetUnit(folded[0]);
    if (count >= kShortGram) Add(ShortHash(folded), stretch);
    if (count >= kLongGram) Add(LongHash(folded), stretch);
  }
}

// Adds the runs that go across the place in front of the unit `at`.
void GramIndex::AddSeam(TextView text, std::size_t at, std::size_t stretch) {
  const std::size_t from = at - std::min(at, kLongGram - 1);
  const std::size_t count = std::min(text.size() - from, at - from + kLongGram - 1);
  const char16_t* const table = FoldTable();
  char16_t folded[2 * kLongGram];
  for (std::size_t i = 0; i < count; ++i) folded[i] = table[text[from + i]];
  for (std::size_t i = 0; i < at - from && i + kLongGram <= count; ++i) Add(LongHash(folded + i), stretch);
  if (at > from && at - from - 1 + kShortGram <= count) Add(ShortHash(folded + (at - from - 1)), stretch);
}

void GramIndex::MoveStarts(std::size_t units, std::span<const std::size_t> places, std::size_t taken,
                           std::size_t brought) {
  const auto old_place = [&](std::size_t hit) { return places[hit] - hit * brought + hit * taken; };
  std::size_t hits = 0;  // that lay in front of the start
  for (std::size_t stretch = 1; stretch < count_; ++stretch) {
    std::size_t& start = starts_[stretch];
    while (hits < places.size() && old_place(hits) < start) ++hits;
    if (hits > 0 && old_place(hits - 1) + taken > start) {
      start = places[hits - 1] + brought;
    } else {
      start = start + hits * brought - hits * taken;
    }
  }
  starts_[count_] = units;
}

void GramIndex::Follow(TextView text, std::span<const std::size_t> places, std::size_t taken,
                       std::size_t brought) {
  MoveStarts(text.size(), places, taken, brought);
  std::size_t stretch = 0;
  Stretches before = 0;  // the stretch of the place before
  for (const std::size_t place : places) {
    while (stretch + 1 < count_ && starts_[stretch + 1] <= place) ++stretch;
    // The runs within what was brought are the same at every place.
    const std::size_t known = Bit(stretch) == before ? brought - std::min(brought, kLongGram - 1) : 0;
    AddStarts(text, place + known, place + brought, stretch);
    AddSeam(text, place, stretch);
    before = Bit(stretch);
  }
  // What stands after the end of a stretch may be new, or have come closer.
  for (std::size_t i = 0; i + 1 < count_; ++i) {
    const std::size_t end = starts_[i + 1];
    const auto hit = std::lower_bound(places.begin(), places.end(), end - std::min(end, brought + kLongGram));
    if (hit == places.end() || *hit > end + kMargin) continue;
    AddStarts(text, end - std::min(end, kLongGram), std::min(text.size(), end + kMargin), i);
  }
}

}  // namespace quillary::rules

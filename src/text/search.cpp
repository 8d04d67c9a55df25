#include "text/search.h"

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include <algorithm>
#include <bit>

#include "text/ascii.h"
#include "text/case_folding.h"

namespace quillary {
namespace {

constexpr char16_t kCaseBit = 0x20;

// How often units are met in the texts that pass through here, roughly: the
// rarest units of a find text make the cheapest anchors.
struct Common {
  TextView units;
  int commonness;
};
constexpr Common kCommon[] = {{u" e", 9}, {u"taonris", 8}, {u"\\<>\"&;", 7}, {u"\r\n", 4}};

constexpr int Commonness(char16_t unit) {
  if (unit >= 0x80) return 0;
  for (const Common& common : kCommon) {
    if (common.units.find(unit) != TextView::npos) return common.commonness;
  }
  return IsAsciiLower(unit) ? 6 : IsAsciiUpper(unit) ? 5 : 3;
}

// The same for the folded unit. That of "k" and "s" has a third form beyond
// ASCII and costs more to look for.
constexpr std::array<std::int8_t, 0x80> kFoldedCommonness = [] {
  std::array<std::int8_t, 0x80> table{};
  for (char16_t unit = 0; unit < table.size(); ++unit) {
    const char16_t folded = AsciiLower(unit);
    table[unit] = static_cast<std::int8_t>(folded == u'k' || folded == u's' ? 10 : Commonness(folded));
  }
  return table;
}();

int FoldedCommonness(char16_t unit) { return unit < 0x80 ? kFoldedCommonness[unit] : 0; }

}  // namespace

Finder::Anchor Finder::MakeAnchor(TextView find, std::size_t offset, Compare mode) {
  Anchor anchor;
  anchor.offset = offset;
  if (find.empty()) return anchor;
  const char16_t unit = find[offset];
  anchor.unit = unit;
  anchor.variants.fill(unit);
  if (mode == Compare::Binary) return anchor;
  const char16_t lower = unit | kCaseBit;
  if (unit < 0x80 && lower != u'k' && lower != u's') {
    if (!IsAsciiLower(lower)) return anchor;
    anchor.unit = lower;
    anchor.bit = kCaseBit;
    return anchor;
  }
  anchor.variants = FoldVariants(unit);
  anchor.simple = std::all_of(anchor.variants.begin(), anchor.variants.end(),
                              [&](char16_t variant) { return variant == anchor.variants[0]; });
  return anchor;
}

Finder::Finder(TextView find, Compare mode) : find_(find), mode_(mode) {
  std::size_t rarest = 0;
  std::size_t next = find.size() > 1 ? 1 : 0;
  for (std::size_t i = 1; i < find.size(); ++i) {
    const int commonness = FoldedCommonness(find[i]);
    if (commonness < FoldedCommonness(find[rarest])) {
      next = rarest;
      rarest = i;
    } else if (next == rarest || commonness < FoldedCommonness(find[next])) {
      next = i;
    }
  }
  first_ = MakeAnchor(find, rarest, mode);
  second_ = MakeAnchor(find, next, mode);
}

bool Finder::Matches(const char16_t* at) const {
  if (mode_ == Compare::Binary) return TextView(at, find_.size()) == find_;
  const char16_t* fold = FoldTable();
  for (std::size_t i = 0; i < find_.size(); ++i) {
    if (at[i] != find_[i] && fold[at[i]] != fold[find_[i]]) return false;
  }
  return true;
}

std::size_t Finder::Next(TextView text, std::size_t from) const {
  const std::size_t length = find_.size();
  if (length == 0 || text.size() < length || from > text.size() - length) return npos;
  const std::size_t last = text.size() - length;
  return first_.simple && second_.simple ? NextSimple(text.data(), from, last)
                                         : NextOfVariants(text.data(), from, last);
}

std::size_t Finder::NextOneByOne(const char16_t* base, std::size_t at, std::size_t last) const {
  for (; at <= last; ++at) {
    if (Matches(base + at)) return at;
  }
  return npos;
}

#ifdef __SSE2__

std::size_t Finder::NextSimple(const char16_t* base, std::size_t at, std::size_t last) const {
  const __m128i first = _mm_set1_epi16(static_cast<short>(first_.unit));
  const __m128i first_bit = _mm_set1_epi16(static_cast<short>(first_.bit));
  const __m128i second = _mm_set1_epi16(static_cast<short>(second_.unit));
  const __m128i second_bit = _mm_set1_epi16(static_cast<short>(second_.bit));
  const char16_t* const at_first = base + first_.offset;
  const char16_t* const at_second = base + second_.offset;
  const auto both_at = [&](std::size_t place) {
    const __m128i left = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at_first + place));
    const __m128i right = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at_second + place));
    return _mm_and_si128(_mm_cmpeq_epi16(_mm_or_si128(left, first_bit), first),
                         _mm_cmpeq_epi16(_mm_or_si128(right, second_bit), second));
  };
  for (; at + 15 <= last; at += 16) {
    // Sixteen answers, a byte for each.
    const __m128i both = _mm_packs_epi16(both_at(at), both_at(at + 8));
    for (auto bits = static_cast<unsigned>(_mm_movemask_epi8(both)); bits != 0; bits &= bits - 1) {
      const std::size_t candidate = at + static_cast<std::size_t>(std::countr_zero(bits));
      if (Matches(base + candidate)) return candidate;
    }
  }
  return NextOneByOne(base, at, last);
}

std::size_t Finder::NextOfVariants(const char16_t* base, std::size_t at, std::size_t last) const {
  const auto equal_any = [](__m128i units, const Anchor& anchor) {
    __m128i hit = _mm_setzero_si128();
    if (anchor.simple) units = _mm_or_si128(units, _mm_set1_epi16(static_cast<short>(anchor.bit)));
    for (const char16_t variant : anchor.variants) {
      const char16_t wanted = anchor.simple ? anchor.unit : variant;
      hit = _mm_or_si128(hit, _mm_cmpeq_epi16(units, _mm_set1_epi16(static_cast<short>(wanted))));
    }
    return hit;
  };
  for (; at + 7 <= last; at += 8) {
    const __m128i left = _mm_loadu_si128(reinterpret_cast<const __m128i*>(base + at + first_.offset));
    const __m128i right = _mm_loadu_si128(reinterpret_cast<const __m128i*>(base + at + second_.offset));
    const __m128i both = _mm_packs_epi16(_mm_and_si128(equal_any(left, first_), equal_any(right, second_)),
                                         _mm_setzero_si128());
    for (auto bits = static_cast<unsigned>(_mm_movemask_epi8(both)); bits != 0; bits &= bits - 1) {
      const std::size_t candidate = at + static_cast<std::size_t>(std::countr_zero(bits));
      if (Matches(base + candidate)) return candidate;
    }
  }
  return NextOneByOne(base, at, last);
}

#else

std::size_t Finder::NextSimple(const char16_t* base, std::size_t at, std::size_t last) const {
  return NextOneByOne(base, at, last);
}

std::size_t Finder::NextOfVariants(const char16_t* base, std::size_t at, std::size_t last) const {
  return NextOneByOne(base, at, last);
}

#endif

}  // namespace quillary

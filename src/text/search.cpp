#include "text/search.h"

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include <bit>

#include "text/case_folding.h"

namespace quillary {
namespace {

// How often a unit is met in the texts that pass through here, roughly: the
// rarest units of a find text make the cheapest anchors.
int Commonness(char16_t unit) {
  if (unit >= 0x80) return 0;
  switch (unit) {
    case u' ':
    case u'e':
      return 9;
    case u'\\':
    case u'<':
    case u'>':
    case u'"':
    case u'&':
    case u';':
      return 7;
    case u't':
    case u'a':
    case u'o':
    case u'n':
    case u'r':
    case u'i':
    case u's':
      return 8;
    case u'\r':
    case u'\n':
      return 4;
    default:
      return unit >= u'a' && unit <= u'z' ? 6 : unit >= u'A' && unit <= u'Z' ? 5 : 3;
  }
}

}  // namespace

Finder::Anchor Finder::MakeAnchor(TextView find, std::size_t offset, Compare mode) {
  Anchor anchor;
  anchor.offset = offset;
  if (find.empty()) return anchor;
  if (mode == Compare::IgnoreCase) {
    anchor.variants = FoldVariants(find[offset]);
  } else {
    anchor.variants.fill(find[offset]);
  }
  return anchor;
}

Finder::Finder(TextView find, Compare mode) : find_(find), mode_(mode) {
  std::size_t rarest = 0;
  std::size_t next = find.size() > 1 ? 1 : 0;
  for (std::size_t i = 0; i < find.size(); ++i) {
    const char16_t unit = FoldUnit(find[i]);
    if (i > 0 && Commonness(unit) < Commonness(FoldUnit(find[rarest]))) {
      next = rarest;
      rarest = i;
    } else if (i != rarest && (next == rarest || Commonness(unit) < Commonness(FoldUnit(find[next])))) {
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
  const char16_t* base = text.data();
  std::size_t at = from;
#ifdef __SSE2__
  const auto equal_any = [](__m128i units, const __m128i* variants, int count) {
    __m128i hit = _mm_cmpeq_epi16(units, variants[0]);
    for (int i = 1; i < count; ++i) hit = _mm_or_si128(hit, _mm_cmpeq_epi16(units, variants[i]));
    return hit;
  };
  __m128i first[4];
  __m128i second[4];
  int first_count = 1;
  int second_count = 1;
  for (int i = 0; i < 4; ++i) {
    const auto index = static_cast<std::size_t>(i);
    first[i] = _mm_set1_epi16(static_cast<short>(first_.variants[index]));
    second[i] = _mm_set1_epi16(static_cast<short>(second_.variants[index]));
    if (first_.variants[index] != first_.variants[0]) first_count = i + 1;
    if (second_.variants[index] != second_.variants[0]) second_count = i + 1;
  }
  for (; at + 7 <= last; at += 8) {
    const __m128i left = _mm_loadu_si128(reinterpret_cast<const __m128i*>(base + at + first_.offset));
    const __m128i right = _mm_loadu_si128(reinterpret_cast<const __m128i*>(base + at + second_.offset));
    const __m128i both =
        _mm_and_si128(equal_any(left, first, first_count), equal_any(right, second, second_count));
    auto bits = static_cast<unsigned>(_mm_movemask_epi8(both));
    while (bits != 0) {
      const std::size_t candidate = at + static_cast<std::size_t>(std::countr_zero(bits)) / 2;
      if (Matches(base + candidate)) return candidate;
      bits &= bits - 1;
      bits &= bits - 1;
    }
  }
#endif
  for (; at <= last; ++at) {
    if (Matches(base + at)) return at;
  }
  return npos;
}

}  // namespace quillary

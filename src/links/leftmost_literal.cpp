#include "links/leftmost_literal.h"

#include <algorithm>

#include "text/ascii.h"
#include "text/case_folding.h"

namespace quillary::links {
namespace {

char16_t Lower(char16_t unit) { return unit < 0x80 ? AsciiLower(unit) : LowerUnit(unit); }

bool StandsAt(TextView text, std::size_t offset, TextView literal) {
  if (text.size() - offset < literal.size()) return false;
  for (std::size_t i = 0; i < literal.size(); ++i) {
    if (Lower(text[offset + i]) != literal[i]) return false;
  }
  return true;
}

}  // namespace

LeftmostLiteral::LeftmostLiteral(const TextList& list, std::int32_t last) {
  for (std::int32_t i = 1; i <= last; ++i) Add(list[i]);
}

LeftmostLiteral LeftmostLiteral::Without(TextView text) const {
  LeftmostLiteral result;
  for (const TextView literal : literals_) {
    if (literal.find(text) == TextView::npos) result.Add(literal);
  }
  return result;
}

std::size_t LeftmostLiteral::PairIndex(char16_t first, char16_t second) {
  return static_cast<std::size_t>(first & 0xFF) << 8 | static_cast<std::size_t>(second & 0xFF);
}

void LeftmostLiteral::Add(TextView literal) {
  literals_.push_back(literal);
  if (literal.empty()) {
    pairs_.set();
  } else if (literal.size() == 1) {
    units_.set(literal[0]);
    for (char16_t second = 0; second < 0x100; ++second) pairs_.set(PairIndex(literal[0], second));
  } else {
    pairs_.set(PairIndex(literal[0], literal[1]));
  }
}

std::optional<LeftmostLiteral::Hit> LeftmostLiteral::Next(TextView text, std::size_t from,
                                                          std::size_t before) const {
  const std::size_t end = std::min(before, text.size());
  if (from >= end) return std::nullopt;
  char16_t unit = Lower(text[from]);
  for (std::size_t at = from; at < end; ++at) {
    const char16_t next = at + 1 < text.size() ? Lower(text[at + 1]) : u'\0';
    if (pairs_.test(PairIndex(unit, next))) {
      for (const TextView literal : literals_) {
        if (StandsAt(text, at, literal)) return Hit{at, literal};
      }
    }
    unit = next;
  }
  return std::nullopt;
}

bool LeftmostLiteral::HasUnit(char16_t unit) const { return units_.test(Lower(unit)); }

}  // namespace quillary::links

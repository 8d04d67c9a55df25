// The one search under every rule and scan: all units of the text are
// compared, eight at a time, with the two rarest units of what is looked for.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "text/text.h"

namespace quillary {

/// A prepared search for one text. The text searched for must outlive it.
class Finder {
 public:
  static constexpr std::size_t npos = static_cast<std::size_t>(-1);

  Finder(TextView find, Compare mode);

  /// 0-based offset of the first occurrence at or after the 0-based `from`,
  /// or npos. An empty find text is never found.
  std::size_t Next(TextView text, std::size_t from) const;

  std::size_t length() const { return find_.size(); }

 private:
  // A unit of the find text and what counts as equal to it. Where those are
  // one unit, or two that differ in the case bit, `bit` makes them one.
  struct Anchor {
    std::size_t offset = 0;
    char16_t unit = 0;
    char16_t bit = 0;
    bool simple = true;
    std::array<char16_t, 4> variants{};  // the first one repeated
  };
  bool Matches(const char16_t* at) const;
  static Anchor MakeAnchor(TextView find, std::size_t offset, Compare mode);
  std::size_t NextSimple(const char16_t* base, std::size_t at, std::size_t last) const;
  std::size_t NextOfVariants(const char16_t* base, std::size_t at, std::size_t last) const;
  std::size_t NextOneByOne(const char16_t* base, std::size_t at, std::size_t last) const;

  TextView find_;
  Compare mode_;
  Anchor first_;
  Anchor second_;
};

}  // namespace quillary

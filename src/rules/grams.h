// Hashes of short runs of folded units. rulec computes those of every find
// text, the gram index those of the text under rewriting; a text without
// one of them cannot hold the find text.
#pragma once

#include <cstddef>
#include <cstdint>

namespace quillary::rules {

/// Runs of two units serve find texts that are too short for one of four.
inline constexpr std::size_t kShortGram = 2;
inline constexpr std::size_t kLongGram = 4;

/// The hash of folded units. The top bits are the best.
inline std::uint32_t ShortHash(const char16_t* units) {
  const std::uint64_t both = units[0] | static_cast<std::uint64_t>(units[1]) << 16;
  return static_cast<std::uint32_t>((both * 0x9E3779B97F4A7C15U) >> 32);
}

inline std::uint32_t LongHash(const char16_t* units) {
  const std::uint64_t all = units[0] | static_cast<std::uint64_t>(units[1]) << 16 |
                            static_cast<std::uint64_t>(units[2]) << 32 |
                            static_cast<std::uint64_t>(units[3]) << 48;
  return static_cast<std::uint32_t>((all * 0xD6E8FEB86659FD93U) >> 32);
}

/// How long the runs of a find text of so many units are; 0 for a single unit.
inline constexpr std::size_t GramLength(std::size_t units) {
  return units >= kLongGram ? kLongGram : units >= kShortGram ? kShortGram : 0;
}

inline std::uint32_t GramHash(const char16_t* units, std::size_t length) {
  return length == kLongGram ? LongHash(units) : ShortHash(units);
}

}  // namespace quillary::rules

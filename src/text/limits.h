// Every limit of a conversion, in one place. Passing one throws LimitReached.
#pragma once

#include <cstddef>

namespace quillary::limits {

/// Longest input text, in units.
inline constexpr std::size_t kInputUnits = std::size_t{256} << 20;

/// Longest text under rewriting, in units.
inline constexpr std::size_t kWorkingUnits = std::size_t{512} << 20;

/// Tables within tables of a page.
inline constexpr int kTableNesting = 500;

/// Cells that are put below ROWSPANs where a cell counts for two rows: such pages may have no end.
inline constexpr int kSharedMergedCells = 2000;

/// A text may grow to this many times the input, or to this many units,
/// whichever is more.
inline constexpr std::size_t kGrowthFactor = 256;
inline constexpr std::size_t kGrowthFloorUnits = std::size_t{16} << 20;

}  // namespace quillary::limits

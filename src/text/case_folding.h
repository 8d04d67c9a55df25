// Case of single 16-bit units: simple folding, upper and lower case. No unit
// ever becomes two.
#pragma once

#include <array>

namespace quillary {

/// What a unit counts as when case is ignored.
char16_t FoldUnit(char16_t unit);
char16_t UpperUnit(char16_t unit);
char16_t LowerUnit(char16_t unit);

/// All units that fold to the same unit as this one, at most four; the
/// entries after the last repeat the first.
std::array<char16_t, 4> FoldVariants(char16_t unit);

/// The folding table whole, indexed by unit.
const char16_t* FoldTable();

}  // namespace quillary

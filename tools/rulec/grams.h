// The hashes that go with every find text, chosen so that the run of a chain
// learns with few questions that a rule cannot match.
#pragma once

#include <cstdint>
#include <vector>

#include "expand.h"

namespace quillary::rulec {

/// The hashes worth asking for, the most telling first; none for one unit.
std::vector<std::uint32_t> TellingGrams(TextView find);

/// Cuts the parts of rules so that rules next to each other which share a run
/// of units stand in parts of their own, with that run's hash.
void CutIntoBlocks(FlatChain& chain);

}  // namespace quillary::rulec

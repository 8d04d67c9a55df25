// Bounds the growth of one conversion by the length of its source.
#pragma once

#include <algorithm>
#include <cstddef>

#include "apartment/apartment.h"
#include "text/limits.h"

namespace quillary {

/// For its lifetime the apartment's working limit is what a source of so many
/// units may grow to.
class GrowthLimit {
 public:
  GrowthLimit(Apartment& apartment, std::size_t source_units)
      : apartment_(apartment), outer_(apartment.working_limit) {
    const std::size_t grown = std::max(source_units * limits::kGrowthFactor, limits::kGrowthFloorUnits);
    apartment.working_limit = std::min(outer_, grown);
  }
  GrowthLimit(const GrowthLimit&) = delete;
  GrowthLimit& operator=(const GrowthLimit&) = delete;
  ~GrowthLimit() { apartment_.working_limit = outer_; }

 private:
  Apartment& apartment_;
  std::size_t outer_;
};

}  // namespace quillary

// Where the C library's converters and Windows' own tables disagree.
#pragma once

#include <span>

namespace quillary::platform {

/// Single bytes `first` to `last` of a code page are the units from `unit` on.
struct ByteDifference {
  int code_page;
  unsigned char first;
  unsigned char last;
  char16_t unit;
};

/// A block of pairs whose units follow each other without a gap: lead bytes
/// from `first_lead` to `last_lead`, and for each the trail bytes from
/// `first_trail` to `last_trail`, but never those from `skip_first` to `skip_last`.
struct PairDifference {
  int code_page;
  unsigned char first_lead;
  unsigned char last_lead;
  unsigned char first_trail;
  unsigned char last_trail;
  char16_t unit;
  unsigned char skip_first = 1;
  unsigned char skip_last = 0;
};

std::span<const ByteDifference> ByteDifferences();
std::span<const PairDifference> PairDifferences();

}  // namespace quillary::platform

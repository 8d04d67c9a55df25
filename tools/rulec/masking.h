// Rules that cannot fire, because a rule ahead of them in the same stage always
// eats their find text. Such rules are wanted as they stand: the report is for
// people, never an error.
#pragma once

#include <vector>

#include "expand.h"

namespace quillary::rulec {

struct Masked {
  const FlatRule* rule = nullptr;
  const FlatRule* by = nullptr;
  /// A rule between the two whose replacement may join its neighbours into
  /// the find text again; null where there is none.
  const FlatRule* joined_by = nullptr;
};

/// In the order of the rules.
std::vector<Masked> FindMasked(const FlatChain& chain);

}  // namespace quillary::rulec

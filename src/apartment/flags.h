// How the properties that are flags are read. They are plain texts, and each
// reader makes its own test; the two kinds of test must be kept apart.
#pragma once

#include "text/text.h"

namespace quillary {

/// Whether a flag folded to lower case is `word`: " yes" is not "yes".
inline bool FlagIs(TextView flag, TextView word) {
  return flag.size() == word.size() && ToLower(flag) == word;
}

/// Whether a flag without its outer spaces, folded to lower case, is `word`.
inline bool TrimmedFlagIs(TextView flag, TextView word) { return FlagIs(TrimView(flag), word); }

}  // namespace quillary

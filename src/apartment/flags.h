// How the flag properties are read. They are plain texts, and each reader makes
// its own test; the two kinds of test must be kept apart.
#pragma once

#include "text/text.h"

namespace quillary::modQuillary {

/// Whether a flag folded to lower case is `word`: " yes" is not "yes".
inline bool Folded(TextView flag, TextView word) {
  return flag.size() == word.size() && ToLower(flag) == word;
}

/// Whether a flag without its outer blanks, folded to lower case, is `word`.
inline bool TrimmedFolded(TextView flag, TextView word) { return Folded(TrimView(flag), word); }

}  // namespace quillary::modQuillary

// Blocks of a text between two delimiters.
#pragma once

#include "text/text.h"

namespace quillary::stylesheet {

/// Deletes what stands from the first `open` to the first `close` at least `close_from` units
/// after the start of that, both included, and begins anew with what is left, until one of them
/// is not to be found. Finds both in upper case.
void CutBlocks(Text& text, TextView open, TextView close, std::size_t close_from);

}  // namespace quillary::stylesheet

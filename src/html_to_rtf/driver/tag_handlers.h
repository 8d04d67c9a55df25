// Which tag goes to which handler.
#pragma once

#include <span>

#include "html_to_rtf/driver/conversion.h"

namespace quillary::HTMLRTFConverter {

/// A tag of the page.
struct PageTag {
  TextView written;
  TextView upper;             // the same in upper case
  std::int32_t position = 0;  // of its "<" in HtmlWork
};

/// One test of the tag in upper case, and what is done where it holds.
struct TagHandler {
  const char* name = nullptr;
  TextView prefix = {};  // of the tag; empty where only the whole tag matches
  TextView whole = {};   // the whole tag; empty where only the prefix counts
  TextView words = {};   // to be appended, or
  void (*run)(Conversion& conversion, const PageTag& tag) = nullptr;

  bool Takes(TextView upper) const {
    return (!prefix.empty() && upper.starts_with(prefix)) || (!whole.empty() && upper == whole);
  }
};

/// All tests in order. They do not exclude one another. Prefixes are loose: whatever begins
/// like one of these is treated as it.
std::span<const TagHandler> TagHandlers();

/// Throws Failure as the handler does.
void Run(const TagHandler& handler, Conversion& conversion, const PageTag& tag);

}  // namespace quillary::HTMLRTFConverter

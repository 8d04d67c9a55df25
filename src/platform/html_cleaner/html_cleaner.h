// The HTML cleaner: one 8-bit text in, one out. The texts cross this boundary
// in Windows-1252.
#pragma once

#include <memory>

#include "text/text.h"

namespace quillary::platform {

class HtmlCleaner {
 public:
  virtual ~HtmlCleaner() = default;

  /// Throw Failure (raised) if the page is refused, as a missing library does.
  virtual Text TidyDLL_CleanHTML(TextView html) = 0;
  virtual Text TidyDLL_ToXHTML(TextView html) = 0;
  virtual Text TidyDLL_ParseHTML(TextView html) = 0;
};

std::unique_ptr<HtmlCleaner> MakeHtmlCleaner();

}  // namespace quillary::platform

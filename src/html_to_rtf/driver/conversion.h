// One conversion on its way through the steps.
#pragma once

#include "apartment/apartment.h"
#include "text/text.h"

namespace quillary::HTMLRTFConverter {

struct Conversion {
  Apartment& apartment;
  Text& html;  // the caller's
  TextView style_base;
  TextView image_folder;
  Integer16 border_mode;
  bool of_word_processor = false;  // which has written the page
  std::int32_t pass_limit = 0;     // the loop over the tags takes no more passes
  std::int32_t run_language = 0;   // language number of the last run written, 0 if none was
  Text document = {};              // the RTF whole

  HtmlToRtfState& state() { return apartment.html_to_rtf; }
  rules::Rewriting& page() { return apartment.html_to_rtf.HtmlWork; }
};

}  // namespace quillary::HTMLRTFConverter

// The charsets that fonts name.
#pragma once

#include <cstdint>

#include "text/text.h"

namespace quillary::platform::rtf {

struct Charset {
  std::int32_t number;
  int code_page;
  TextView suffix;  // after the names of such fonts
};

/// Nothing for a Western charset and for an unknown one.
const Charset* FindCharset(std::int32_t number);

}  // namespace quillary::platform::rtf

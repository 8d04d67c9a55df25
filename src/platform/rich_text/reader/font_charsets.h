// What stands at the end of a font's name for its charset.
#pragma once

#include <cstdint>

#include "text/text.h"

namespace quillary::platform::rtf {

/// " Cyr" of the Cyrillic charset; empty for a charset that adds nothing.
TextView SuffixOfCharset(std::int32_t charset);

}  // namespace quillary::platform::rtf

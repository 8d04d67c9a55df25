// Which charset a page is in.
#pragma once

#include <cstddef>
#include <string_view>

#include "platform/code_pages/charsets.h"

namespace quillary::page_reader {

struct PageCharset {
  platform::Charset charset = platform::Charset::Windows1252;
  std::size_t mark_length = 0;  // of the byte order mark at the beginning of the page
};

/// The charset of the byte order mark, else the one declared in a META element
/// or an XML declaration at the head of the page, else Windows-1252. Labels that
/// nobody knows count as none. A page whose META element was read is not in
/// UTF-16, so UTF-16 declared there means UTF-8.
PageCharset FindPageCharset(std::string_view bytes);

}  // namespace quillary::page_reader

// Any page of the world, as the bytes of its file, in the dialect that the HTML
// to RTF rules know.
#pragma once

#include <string_view>

#include "text/text.h"

namespace quillary::page_reader {

/// Decodes a page by its byte order mark or the charset that it declares, and
/// spells it in ASCII, as SpellPage says. A page in a charset that the rules
/// decode themselves comes as it is, each byte as its Windows-1252 character;
/// only its references are spelled.
/// Throws Failure (raised) if the C library of this machine lacks the charset.
Text ReadPage(std::string_view bytes);

}  // namespace quillary::page_reader

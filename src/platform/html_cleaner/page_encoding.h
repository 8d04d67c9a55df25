// What the HTML library gets of a page: its bytes, and no elements foreign to HTML.
#pragma once

#include <string>
#include <string_view>

#include "text/text.h"

namespace quillary::platform {

/// The page in Windows-1252; a character that the page lacks becomes "?". What
/// no page may hold goes: control characters, and references to them or to
/// what is no character. A "<" that opens neither a tag nor a comment, nor the
/// document type in front of all else, stands for itself.
std::string EncodePage(TextView html);

/// The page without its scripts, style sheets, formulas and drawings: their
/// content is no HTML, and what the library makes of it is not always XML.
std::string WithoutForeignElements(std::string_view page);

}  // namespace quillary::platform

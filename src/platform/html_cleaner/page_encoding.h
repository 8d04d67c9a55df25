// The encoding of a page for the HTML library.
#pragma once

#include <string>
#include <string_view>

#include "text/text.h"

namespace quillary::platform {

struct Tag {
  bool closes;
  std::string name;  // in lower case; none for a declaration
  std::size_t end;   // behind its ">", or where the next tag begins without one
};

/// The tag that begins at this "<".
Tag ReadTag(std::string_view page, std::size_t at);

/// Where the end tag of this name begins, the end of the page if nowhere.
std::size_t EndTagOf(std::string_view page, std::string_view name, std::size_t from);

/// Whether a name is one in XML and has no prefix.
bool IsPlainName(std::string_view name);

/// The page in Windows-1252; a character that the page lacks becomes "?". What
/// no page may hold goes: control characters, and references to them or to
/// what is no character. A "<" that opens neither a tag nor a comment, nor the
/// document type in front of all else, stands for itself.
std::string EncodePage(TextView html);

/// The page without its scripts, style sheets, formulas and drawings: their
/// content is no HTML, and what the library makes of it is not always XML.
std::string WithoutForeignElements(std::string_view page);

}  // namespace quillary::platform

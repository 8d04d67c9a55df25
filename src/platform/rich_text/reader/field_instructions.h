// The meaning of a field's instruction.
#pragma once

#include <optional>

#include "text/text.h"

namespace quillary::platform::rtf {

/// The address of a hyperlink; empty for any other field and for a link within
/// the document.
Text LinkTarget(TextView instruction);

/// Whether a link's label is its address, so that the address need not be added.
bool IsSameTarget(TextView label, TextView target);

/// The character of a SYMBOL field.
std::optional<char16_t> SymbolOfField(TextView instruction);

}  // namespace quillary::platform::rtf

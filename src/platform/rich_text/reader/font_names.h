// The names of fonts as the canonical font table may hold them.
#pragma once

#include "platform/rich_text/model/document_model.h"

namespace quillary::platform::rtf {

/// The name of a font from the one that it was read with. `alternative` is its
/// other name, which is taken where its own has letters that no page can name a
/// font by.
Text FontName(const Font& font, TextView alternative);

/// Whether fonts of this name are symbol fonts.
bool IsSymbolName(TextView name);

}  // namespace quillary::platform::rtf

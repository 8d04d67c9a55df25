// Writes a document in the one form for which the rewrite rules were made: a
// paragraph's end stands at the start of the next line, words only on change.
#pragma once

#include "platform/rich_text/model/document_model.h"

namespace quillary::platform::rtf {

Text WriteCanonical(const Document& document);

}  // namespace quillary::platform::rtf

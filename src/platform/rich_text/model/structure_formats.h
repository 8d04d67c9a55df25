// The formats of the characters that end cells, rows and paragraphs: nobody sees
// them, but the page loses text or formatting by some of them.
#pragma once

#include "platform/rich_text/model/document_model.h"

namespace quillary::platform::rtf {

/// Gives the ends of cells, rows and paragraphs in front of changes of format the
/// formats that the page handles best. Those that it chose stay as they are.
void ChooseStructureFormats(Document& document);

}  // namespace quillary::platform::rtf

// The formats of marks: nobody sees them, but the page loses text or formatting
// by some of them.
#pragma once

#include "platform/rich_text/model/document_model.h"

namespace quillary::platform::rtf {

/// Gives the marks in front of changes of format the formats that the page
/// handles best. Settled marks stay as they are.
void SettleMarks(Document& document);

}  // namespace quillary::platform::rtf

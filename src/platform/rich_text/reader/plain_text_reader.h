// Plain text into the control.
#pragma once

#include "platform/rich_text/model/document_model.h"

namespace quillary::platform::rtf {

/// A document in the control's own font, a paragraph for each line.
Document ReadPlainText(TextView plain);

}  // namespace quillary::platform::rtf

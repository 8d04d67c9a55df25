// Plain text out of the control.
#pragma once

#include "platform/rich_text/model/document_model.h"

namespace quillary::platform::rtf {

/// The text of a document: CR LF between paragraphs, after rows and at line
/// breaks, tabs between cells. Numbers of list items stand in front of them.
Text WritePlainText(const Document& document);

}  // namespace quillary::platform::rtf

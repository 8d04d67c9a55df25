// Plain text into the control and out of it.
#pragma once

#include "platform/document_model.h"

namespace quillary::platform::rtf {

/// A document in the control's own font, a paragraph for each line.
Document ReadPlainText(TextView plain);

/// The text of a document: CR LF between paragraphs, behind rows and at line
/// breaks, tabs between cells. Numbers of list items stand in front of them.
Text WritePlainText(const Document& document);

}  // namespace quillary::platform::rtf

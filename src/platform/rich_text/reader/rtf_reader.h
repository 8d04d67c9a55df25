// RTF into the control.
#pragma once

#include "platform/rich_text/model/document_model.h"

namespace quillary::platform::rtf {

/// Reads an RTF text of any producer. Every sequence of units gives a document:
/// one pass, a stack of groups that is bounded, no recursion.
Document ReadRtf(TextView rtf);

}  // namespace quillary::platform::rtf

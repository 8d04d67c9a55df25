// The escapes of a document with foreign charsets, run by run.
#pragma once

#include "rtf_to_html/segments/escape_context.h"

namespace quillary::modQuillary {

/// Decodes each run of touching escapes in `body` by the charset of the font in
/// force in front of it, from the first run on, until a run has no font or cannot
/// be decoded. The font words and escapes behind that stay.
void DecodeForeignRuns(Apartment& apartment, Text& body, const EscapeHead& head);

}  // namespace quillary::modQuillary

// Mends hyperlinks that reach the page as an underlined label with the target
// behind it in angle brackets.
#pragma once

#include "text/text.h"

namespace quillary::links {

/// Runs whose target already is an anchor. Ends with RepairPictureLinks where
/// a picture stands at the end of an underlined run.
Text RepairLabelAnchors(TextView html);

/// Runs whose target still is plain text, in front of black text.
Text RepairLabelLinks(TextView html);

}  // namespace quillary::links

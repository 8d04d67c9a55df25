// Mends hyperlinks that reach the page as an underlined label with the target
// after it in angle brackets.
#pragma once

#include "rules/rewriting.h"
#include "text/text.h"

namespace quillary::links {

/// Runs whose target already is an anchor. Ends with RepairPictureLinks where
/// a picture stands at the end of an underlined run.
Text RepairLabelAnchors(TextView html);
void RepairLabelAnchors(rules::Rewriting& page);

/// Runs whose target still is plain text, in front of black text.
Text RepairLabelLinks(TextView html);
void RepairLabelLinks(rules::Rewriting& page);

}  // namespace quillary::links

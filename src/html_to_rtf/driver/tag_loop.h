// The loop over the page's tags: each goes to its handler, and the text after it is written.
#pragma once

#include "html_to_rtf/driver/conversion.h"

namespace quillary::HTMLRTFConverter {

/// Walks HtmlWork from tag to tag and appends to RtfOut. Every statement that fails is
/// skipped, and noted in the apartment once for each handler.
void WalkTags(Conversion& conversion);

}  // namespace quillary::HTMLRTFConverter

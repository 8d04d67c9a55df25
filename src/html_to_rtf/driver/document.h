// The RTF whole: the tables that the handlers have filled on the way, in front of the body.
#pragma once

#include "html_to_rtf/driver/conversion.h"

namespace quillary::HTMLRTFConverter {

void AssembleDocument(Conversion& conversion);

}  // namespace quillary::HTMLRTFConverter

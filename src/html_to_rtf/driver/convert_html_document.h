// The driver of the HTML to RTF direction. Module HTMLRTFConverter.
#pragma once

#include "apartment/apartment.h"
#include "text/text.h"

namespace quillary::HTMLRTFConverter {

/// Turns a page into an RTF document. `html` is emptied; `image_folder` is where pictures
/// are looked for, `border_mode` 1 gives all tables borders and 0 none. Throws Failure where
/// a step fails that prepares the page, and leaves `html` then; steps after that which fail
/// are skipped. Throws LimitReached for a page that is too long or grows too much.
Text ConvertHtmlDocument(Apartment& apartment, Text& html, TextView style_base, TextView image_folder,
                         Integer16 border_mode);

}  // namespace quillary::HTMLRTFConverter

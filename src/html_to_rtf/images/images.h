// Module HTMLRTFConverter: the pictures of a page.
#pragma once

#include "apartment/apartment.h"
#include "text/text.h"

namespace quillary::HTMLRTFConverter {

/// Appends the picture that an IMG tag names, given in upper case and as written, as text of
/// RTF; a dot where it cannot be had. `image_folder` is where relative names are looked for and
/// where downloads go: it must end in a separator. Throws nothing.
void PlaceImage(Apartment& apartment, TextView upper, TextView image_folder, TextView written);

}  // namespace quillary::HTMLRTFConverter

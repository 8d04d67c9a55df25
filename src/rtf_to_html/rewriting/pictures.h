// Pictures and embedded objects leave the document before it is rewritten.
#pragma once

#include "apartment/apartment.h"
#include "text/text.h"

namespace quillary::modQuillary {

/// Most pictures and objects that one document loses or has replaced; what is
/// left over is dealt with segment by segment.
inline constexpr int kMostPictures = 65;

/// With ConvertImages "yes": writes the pictures to files, puts the name of its
/// file between two markers in place of each, and leaves of an embedded object
/// only its picture. Otherwise pictures and objects are cut out. Changes
/// ImageFolder and ImageName; counts in PictureCounter; sets EquationSeen.
/// Throws Failure where the picture extractor does; the text is then as it was.
void ReplacePictures(Apartment& apartment, Text& text);

/// Takes the upper-case form of what stands between "\caps " and "\caps0 ", and
/// both words out. Capitals that are never switched off have no effect.
Text ApplyCaps(Text text);

}  // namespace quillary::modQuillary

// Makes a picture at the end of an underlined run, and the label in front of
// it, one link to the picture.
#pragma once

#include <array>

#include "text/text.h"

namespace quillary::links {

/// The end of an underlined run that ends with a picture, by the kinds of
/// picture files in the order in which they are looked for.
inline constexpr std::array<TextView, 4> kPictureEndings = {u".gif\"></u>", u".jpg\"></u>", u"jpeg\"></u>",
                                                            u".png\"></u>"};

/// Throws Failure (argument) for a picture that does not stand in the run that
/// it ends.
Text RepairPictureLinks(TextView html);

}  // namespace quillary::links

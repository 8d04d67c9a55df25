// GIF files.
#pragma once

#include <optional>
#include <string_view>

#include "platform/pictures/image.h"

namespace quillary::platform {

/// The first image of the file on its screen, transparent where it is not. None if it is broken
/// or has too many pixels.
std::optional<Image> DecodeGif(std::string_view bytes);

}  // namespace quillary::platform

// Metafiles as images. One that only wraps a bitmap gives that bitmap, pixel by pixel; of
// others the common records are drawn, and the rest is passed over.
#pragma once

#include <optional>
#include <string_view>

#include "platform/pictures/image.h"

namespace quillary::platform {

/// A Windows metafile, with or without the header that makes it placeable. An image of drawn
/// records has this size, and `pixels` falls by those that are painted: at 0 the rest is passed
/// over. None if it is no such metafile. Throws LimitReached (pictures).
std::optional<Image> DrawWmf(std::string_view bytes, std::uint32_t width, std::uint32_t height,
                             double& pixels);

/// The same for an enhanced metafile.
std::optional<Image> DrawEmf(std::string_view bytes, std::uint32_t width, std::uint32_t height,
                             double& pixels);

}  // namespace quillary::platform

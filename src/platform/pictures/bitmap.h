// Bitmaps as Windows keeps them in memory.
#pragma once

#include <optional>
#include <string_view>

#include "platform/pictures/image.h"

namespace quillary::platform {

/// A header, its palette and its pixels in one piece. None if the header makes no sense or
/// there are too many pixels; pixels that are missing are white.
std::optional<Image> DecodeDib(std::string_view bytes);
/// The same with the pixels in a place of their own.
std::optional<Image> DecodeDib(std::string_view header, std::string_view pixels);

/// A BMP file.
std::optional<Image> DecodeBmp(std::string_view bytes);

/// Pixels without a header, as old programs keep them for one device: one colour a plane, or
/// 24 or 32 bits.
std::optional<Image> DecodeDeviceBitmap(std::string_view pixels, std::uint32_t width, std::uint32_t height,
                                        std::uint32_t row_bytes, std::uint32_t bits);

}  // namespace quillary::platform

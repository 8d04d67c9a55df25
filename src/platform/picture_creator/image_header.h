// What the first bytes of an image file say.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace quillary::platform {

enum class ImageKind { Png, Jpeg, Gif, Bmp };

struct ImageHeader {
  ImageKind kind = ImageKind::Png;
  // In pixels; 0 for a GIF or BMP file.
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  // Pixels per inch; 0 where the file does not say.
  double horizontal = 0;
  double vertical = 0;
};

/// None for other files, and for a PNG or JPEG file without a size.
std::optional<ImageHeader> ReadImageHeader(std::string_view bytes);

}  // namespace quillary::platform

// An image in memory, and the files that it is read from and written to.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillary::platform {

struct Image {
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  std::vector<std::uint8_t> pixels;  // red, green, blue and opacity, from the top left

  /// All pixels zero. Throws LimitReached (pictures) beyond limits::kPicturePixels.
  static Image Blank(std::uint32_t width, std::uint32_t height);
  std::uint8_t* At(std::uint32_t x, std::uint32_t y) { return &pixels[(std::size_t{y} * width + x) * 4]; }
};

/// The bytes of a file. Throw Failure (raised) if the library refuses.
std::string EncodePng(const Image& image);
/// Transparent pixels are laid on white. `quality` is in percent.
std::string EncodeJpeg(const Image& image, int quality);

/// None for bytes that are not such a file, are broken, or hold too many pixels.
std::optional<Image> DecodePng(std::string_view bytes);
std::optional<Image> DecodeJpeg(std::string_view bytes);

}  // namespace quillary::platform

#include "platform/pictures/image.h"

#include <png.h>
#include <turbojpeg.h>

#include <memory>

#include "text/failure.h"
#include "text/limits.h"

namespace quillary::platform {
namespace {

bool IsTooLarge(std::uint64_t width, std::uint64_t height) {
  return width == 0 || height == 0 || width * height > limits::kPicturePixels;
}

struct CloseTurbo {
  void operator()(void* handle) const { tjDestroy(handle); }
};
using Turbo = std::unique_ptr<void, CloseTurbo>;

const unsigned char* Bytes(std::string_view bytes) {
  return reinterpret_cast<const unsigned char*>(bytes.data());
}

}  // namespace

Image Image::Blank(std::uint32_t width, std::uint32_t height) {
  if (IsTooLarge(width, height)) throw LimitReached(LimitReached::Limit::Pictures);
  return {width, height, std::vector<std::uint8_t>(std::size_t{width} * height * 4)};
}

std::string EncodePng(const Image& image) {
  png_image png{};
  png.version = PNG_IMAGE_VERSION;
  png.width = image.width;
  png.height = image.height;
  png.format = PNG_FORMAT_RGBA;
  png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(png);
  std::string bytes(size, '\0');
  const int written =
      png_image_write_to_memory(&png, bytes.data(), &size, 0, image.pixels.data(), 0, nullptr);
  png_image_free(&png);
  if (written == 0) throw Failure(Failure::Kind::Raised);
  bytes.resize(size);
  return bytes;
}

std::string EncodeJpeg(const Image& image, int quality) {
  std::vector<std::uint8_t> opaque = image.pixels;
  for (std::size_t at = 0; at + 3 < opaque.size(); at += 4) {
    const unsigned opacity = opaque[at + 3];
    for (std::size_t i = at; i < at + 3; ++i) {
      opaque[i] = static_cast<std::uint8_t>((opaque[i] * opacity + 255 * (255 - opacity)) / 255);
    }
  }
  const Turbo turbo(tjInitCompress());
  unsigned char* compressed = nullptr;
  unsigned long size = 0;
  const int failed =
      tjCompress2(turbo.get(), opaque.data(), static_cast<int>(image.width), 0,
                  static_cast<int>(image.height), TJPF_RGBA, &compressed, &size, TJSAMP_420, quality, 0);
  std::string bytes(reinterpret_cast<const char*>(compressed), failed == 0 ? size : 0);
  tjFree(compressed);
  if (failed != 0) throw Failure(Failure::Kind::Raised);
  return bytes;
}

std::optional<Image> DecodePng(std::string_view bytes) {
  png_image png{};
  png.version = PNG_IMAGE_VERSION;
  if (png_image_begin_read_from_memory(&png, bytes.data(), bytes.size()) == 0) return std::nullopt;
  png.format = PNG_FORMAT_RGBA;
  std::optional<Image> image;
  if (!IsTooLarge(png.width, png.height)) {
    image = Image::Blank(png.width, png.height);
    if (png_image_finish_read(&png, nullptr, image->pixels.data(), 0, nullptr) == 0) image.reset();
  }
  png_image_free(&png);
  return image;
}

std::optional<Image> DecodeJpeg(std::string_view bytes) {
  const Turbo turbo(tjInitDecompress());
  int width = 0;
  int height = 0;
  int subsampling = 0;
  int colours = 0;
  const unsigned long size = bytes.size();
  if (tjDecompressHeader3(turbo.get(), Bytes(bytes), size, &width, &height, &subsampling, &colours) != 0) {
    return std::nullopt;
  }
  if (width <= 0 || height <= 0 || colours == TJCS_CMYK || colours == TJCS_YCCK ||
      IsTooLarge(static_cast<std::uint64_t>(width), static_cast<std::uint64_t>(height))) {
    return std::nullopt;
  }
  Image image = Image::Blank(static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height));
  // What is cut off at the end is only a warning.
  if (tjDecompress2(turbo.get(), Bytes(bytes), size, image.pixels.data(), width, 0, height, TJPF_RGBA, 0) !=
          0 &&
      tjGetErrorCode(turbo.get()) != TJERR_WARNING) {
    return std::nullopt;
  }
  return image;
}

}  // namespace quillary::platform

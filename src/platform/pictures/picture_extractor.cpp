#include "platform/pictures/picture_extractor.h"

#include <algorithm>
#include <optional>
#include <string>

#include "platform/files/files.h"
#include "platform/pictures/bitmap.h"
#include "platform/pictures/image.h"
#include "platform/pictures/metafile.h"
#include "platform/pictures/rtf_pictures.h"
#include "text/encodings.h"
#include "text/failure.h"
#include "text/limits.h"
#include "text/search.h"

namespace quillary::platform {
namespace {

struct Size {
  std::uint32_t width;
  std::uint32_t height;
  std::uint64_t pixels() const { return std::uint64_t{width} * height; }
};

// The size in which a picture is shown, in pixels of 1/96 inch.
Size ShownSize(const RtfPicture& picture) {
  constexpr double kTwips = 15;                // of a pixel
  constexpr double kHundredths = 2540.0 / 96;  // of millimetres
  const bool drawn = picture.kind == PictureKind::Wmf || picture.kind == PictureKind::Emf;
  const auto shown = [&](std::int32_t goal, std::int32_t own, std::int32_t scale) {
    double size = goal > 0 ? goal / kTwips : drawn ? own / kHundredths : own;
    if (scale > 0) size = size * scale / 100;
    constexpr double kUnknown = 100, kMost = 4096;
    return static_cast<std::uint32_t>(size >= 1 ? std::min(size, kMost) : size > 0 ? 1 : kUnknown);
  };
  Size size{shown(picture.goal_width, picture.width, picture.scale_x),
            shown(picture.goal_height, picture.height, picture.scale_y)};
  while (size.pixels() > limits::kDrawnPixels) size = {size.width / 2 + 1, size.height / 2 + 1};
  return size;
}

Image PlainImage(Size size) {
  Image image = Image::Blank(size.width, size.height);
  constexpr std::uint8_t kLightGrey = 0xD8;
  for (std::size_t i = 0; i < image.pixels.size(); ++i) image.pixels[i] = i % 4 == 3 ? 255 : kLightGrey;
  return image;
}

std::optional<Image> Decode(const RtfPicture& picture, Size size, double& painted) {
  const auto unsigned_of = [](std::int32_t number) {
    return static_cast<std::uint32_t>(std::max(number, 0));
  };
  switch (picture.kind) {
    case PictureKind::Png:
      return DecodePng(picture.bytes);
    case PictureKind::Jpeg:
      return DecodeJpeg(picture.bytes);
    case PictureKind::Dib:
      return DecodeDib(picture.bytes);
    case PictureKind::DeviceBitmap:
      return DecodeDeviceBitmap(picture.bytes, unsigned_of(picture.width), unsigned_of(picture.height),
                                unsigned_of(picture.row_bytes), unsigned_of(picture.bits));
    case PictureKind::Wmf:
      return DrawWmf(picture.bytes, size.width, size.height, painted);
    case PictureKind::Emf:
      return DrawEmf(picture.bytes, size.width, size.height, painted);
    case PictureKind::Unknown:
      break;
  }
  return std::nullopt;
}

class ImageFiles final : public PictureExtractor {
 public:
  std::int32_t Parse(TextView rtf, TextView path_prefix, std::int16_t, std::int16_t format,
                     std::int16_t quality, std::int16_t, TextView) override {
    constexpr std::int16_t kPng = 2;
    png_ = format == kPng;
    quality_ = quality;
    const Finder pictures(kPictureStart, Compare::Binary);
    std::int32_t count = 0;
    for (std::size_t at = pictures.Next(rtf, 0); at != Finder::npos && count < limits::kPictures;
         at = pictures.Next(rtf, at + 1)) {
      Text number = Decimal(count++);
      number.insert(0, 3 - std::min<std::size_t>(number.size(), 3), u'0');
      WriteWholeFile(HostPath(Joined({path_prefix, number, png_ ? u".png" : u".jpeg"})),
                     FileOf(ReadPicture(rtf, at)));
    }
    return count;
  }

 private:
  // A picture that cannot be decoded is there all the same, so that the others keep their numbers.
  std::string FileOf(const RtfPicture& picture) {
    Size size = ShownSize(picture);
    const bool as_wanted = picture.kind == (png_ ? PictureKind::Png : PictureKind::Jpeg);
    const bool affordable = pixels_ < limits::kPicturePixelsOfDocument;
    if (as_wanted && !affordable) return picture.bytes;
    std::optional<Image> image;
    try {
      if (affordable) image = Decode(picture, size, paintable_);
    } catch (const LimitReached&) {
      image.reset();
    }
    if (image) pixels_ += Size{image->width, image->height}.pixels();
    if (image && as_wanted) return picture.bytes;
    if (!image) {
      pixels_ += size.pixels();
      if (pixels_ >= limits::kPicturePixelsOfDocument) size = {1, 1};
      image = PlainImage(size);
    }
    return png_ ? EncodePng(*image) : EncodeJpeg(*image, quality_);
  }

  bool png_ = false;
  int quality_ = 100;
  std::uint64_t pixels_ = 0;  // of all pictures so far
  double paintable_ = limits::kPaintedPixels;
};

}  // namespace

std::unique_ptr<PictureExtractor> MakePictureExtractor() { return std::make_unique<ImageFiles>(); }

}  // namespace quillary::platform

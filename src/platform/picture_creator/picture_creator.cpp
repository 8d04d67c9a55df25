#include "platform/picture_creator/picture_creator.h"

#include <cmath>
#include <optional>
#include <string>
#include <utility>

#include "platform/picture_creator/image_header.h"
#include "platform/pictures/bitmap.h"
#include "platform/pictures/gif.h"
#include "platform/pictures/image.h"
#include "text/failure.h"
#include "text/limits.h"

namespace quillary::platform {
namespace {

constexpr double kInch = 1440;  // in twips
constexpr double kPixelsPerInch = 96;

// Other kinds of files become PNG.
ImageHeader BringToPng(std::string& bytes) {
  std::optional<ImageHeader> header = ReadImageHeader(bytes);
  if (header && (header->kind == ImageKind::Gif || header->kind == ImageKind::Bmp)) {
    const std::optional<Image> image = header->kind == ImageKind::Gif ? DecodeGif(bytes) : DecodeBmp(bytes);
    if (image) bytes = EncodePng(*image);
    header = image ? ReadImageHeader(bytes) : std::nullopt;
  }
  if (!header) throw Failure(Failure::Kind::Raised);
  return *header;
}

struct Goal {
  double width;
  double height;
};

// In twips. Pixels that are given count 1/96 inch; one that is missing keeps the proportion.
Goal GoalOf(const ImageHeader& header, double width, double height) {
  const auto own = [](double pixels, double per_inch) {
    return pixels * kInch / (per_inch >= 1 ? per_inch : kPixelsPerInch);
  };
  const Goal size{own(header.width, header.horizontal), own(header.height, header.vertical)};
  const double given_width = width * kInch / kPixelsPerInch;
  const double given_height = height * kInch / kPixelsPerInch;
  if (width > 0 && height > 0) return {given_width, given_height};
  if (width > 0) return {given_width, size.height * given_width / size.width};
  if (height > 0) return {size.width * given_height / size.height, given_height};
  return size;
}

void AppendNumber(Text& text, TextView word, double number) {
  constexpr double kMost = 0x7FFFFFFF;
  text.append(word).append(Decimal(std::llround(std::min(std::max(number, 1.0), kMost))));
}

class FilePictures final : public PictureCreator {
 public:
  explicit FilePictures(std::shared_ptr<Files> files) : files_(std::move(files)) {}

  Text CreateFromFile(TextView path, std::int16_t width, std::int16_t height, std::int16_t, std::int16_t,
                      bool, TextView) override {
    std::optional<std::string> bytes;
    if (files_) bytes = files_->Read(path, limits::kPictureFileBytes);
    if (!bytes) throw Failure(Failure::Kind::Raised);
    const ImageHeader header = BringToPng(*bytes);
    const Goal goal = GoalOf(header, width, height);
    Text text = u"{\\pict";
    text += header.kind == ImageKind::Jpeg ? u"\\jpegblip" : u"\\pngblip";
    AppendNumber(text, u"\\picw", header.width);
    AppendNumber(text, u"\\pich", header.height);
    AppendNumber(text, u"\\picwgoal", goal.width);
    AppendNumber(text, u"\\pichgoal", goal.height);
    text += u' ';
    text.reserve(text.size() + bytes->size() * 2 + 2);
    constexpr TextView kDigits = u"0123456789abcdef";
    for (const char byte : *bytes) {
      const auto value = static_cast<unsigned char>(byte);
      text += kDigits[value >> 4];
      text += kDigits[value & 15];
    }
    return text + u"} ";
  }

 private:
  std::shared_ptr<Files> files_;
};

}  // namespace

std::unique_ptr<PictureCreator> MakePictureCreator(std::shared_ptr<Files> files) {
  return std::make_unique<FilePictures>(std::move(files));
}

}  // namespace quillary::platform

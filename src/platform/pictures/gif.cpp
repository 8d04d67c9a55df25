#include "platform/pictures/gif.h"

#include <gif_lib.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

#include "text/limits.h"

namespace quillary::platform {
namespace {

int ReadBytes(GifFileType* file, GifByteType* to, int count) {
  auto& bytes = *static_cast<std::string_view*>(file->UserData);
  const std::size_t units = std::min(bytes.size(), static_cast<std::size_t>(std::max(count, 0)));
  std::memcpy(to, bytes.data(), units);
  bytes.remove_prefix(units);
  return static_cast<int>(units);
}

struct Close {
  void operator()(GifFileType* file) const { DGifCloseFile(file, nullptr); }
};

// The colour that is none, or -1.
int TransparentIndex(const std::vector<GifByteType>& control) {
  const bool transparent = control.size() >= 4 && (control[0] & 1) != 0;
  return transparent ? control[3] : -1;
}

// Reads the records in front of the first image. False if there is none.
bool FindImage(GifFileType* file, int& transparent) {
  GifRecordType type = UNDEFINED_RECORD_TYPE;
  while (DGifGetRecordType(file, &type) == GIF_OK && type != TERMINATE_RECORD_TYPE) {
    if (type == IMAGE_DESC_RECORD_TYPE) return DGifGetImageDesc(file) == GIF_OK;
    if (type != EXTENSION_RECORD_TYPE) continue;
    int code = 0;
    GifByteType* block = nullptr;
    if (DGifGetExtension(file, &code, &block) != GIF_OK) return false;
    if (code == GRAPHICS_EXT_FUNC_CODE && block != nullptr) {
      transparent = TransparentIndex({block + 1, block + 1 + block[0]});
    }
    while (block != nullptr) {
      if (DGifGetExtensionNext(file, &block) != GIF_OK) return false;
    }
  }
  return false;
}

}  // namespace

std::optional<Image> DecodeGif(std::string_view bytes) {
  const std::unique_ptr<GifFileType, Close> file(DGifOpen(&bytes, ReadBytes, nullptr));
  int transparent = -1;
  if (!file || !FindImage(file.get(), transparent)) return std::nullopt;
  const GifImageDesc& place = file->Image;
  const ColorMapObject* colours = place.ColorMap != nullptr ? place.ColorMap : file->SColorMap;
  const auto width = static_cast<std::uint32_t>(std::max(file->SWidth, place.Left + place.Width));
  const auto height = static_cast<std::uint32_t>(std::max(file->SHeight, place.Top + place.Height));
  if (colours == nullptr || width == 0 || height == 0 ||
      std::uint64_t{width} * height > limits::kPicturePixels) {
    return std::nullopt;
  }
  Image image = Image::Blank(width, height);
  std::vector<GifPixelType> line(static_cast<std::size_t>(place.Width));
  // An interlaced image has its lines in four turns.
  constexpr int kFirst[] = {0, 4, 2, 1};
  constexpr int kStep[] = {8, 8, 4, 2};
  const int turns = place.Interlace ? 4 : 1;
  for (int turn = 0; turn < turns; ++turn) {
    for (int y = place.Interlace ? kFirst[turn] : 0; y < place.Height;
         y += place.Interlace ? kStep[turn] : 1) {
      if (DGifGetLine(file.get(), line.data(), place.Width) != GIF_OK) return image;
      for (int x = 0; x < place.Width; ++x) {
        const int index = line[static_cast<std::size_t>(x)];
        if (index == transparent || index >= colours->ColorCount) continue;
        const GifColorType& colour = colours->Colors[index];
        std::uint8_t* pixel =
            image.At(static_cast<std::uint32_t>(place.Left + x), static_cast<std::uint32_t>(place.Top + y));
        pixel[0] = colour.Red;
        pixel[1] = colour.Green;
        pixel[2] = colour.Blue;
        pixel[3] = 255;
      }
    }
  }
  return image;
}

}  // namespace quillary::platform

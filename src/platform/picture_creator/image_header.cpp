#include "platform/picture_creator/image_header.h"

namespace quillary::platform {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kPngStart = "\x89PNG\r\n\x1A\n";
constexpr double kCentimetres = 2.54;  // of an inch
constexpr double kMetres = 0.0254;

std::uint32_t Number(std::string_view bytes, std::size_t at, std::size_t count) {
  std::uint32_t number = 0;
  for (std::size_t i = at; i < at + count; ++i) {
    number = number << 8 | (i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U);
  }
  return number;
}

// The first chunk holds the size; one that may follow it, the resolution.
std::optional<ImageHeader> ReadPng(std::string_view bytes) {
  ImageHeader header{ImageKind::Png, Number(bytes, 16, 4), Number(bytes, 20, 4), 0, 0};
  std::size_t at = kPngStart.size();
  while (at + 12 <= bytes.size()) {
    const std::size_t length = Number(bytes, at, 4);
    const std::string_view type = bytes.substr(at + 4, 4);
    if (type == "IDAT") break;
    if (type == "pHYs" && length == 9 && Number(bytes, at + 16, 1) == 1) {
      header.horizontal = Number(bytes, at + 8, 4) * kMetres;
      header.vertical = Number(bytes, at + 12, 4) * kMetres;
    }
    at += length + 12;
  }
  return header;
}

bool IsFrame(std::uint32_t marker) {
  return marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

std::optional<ImageHeader> ReadJpeg(std::string_view bytes) {
  ImageHeader header{ImageKind::Jpeg, 0, 0, 0, 0};
  for (std::size_t at = 2; at + 4 <= bytes.size();) {
    if (Number(bytes, at, 1) != 0xFF) return std::nullopt;
    const std::uint32_t marker = Number(bytes, at + 1, 1);
    if (marker == 0xFF) {  // fills the room in front of a marker
      ++at;
      continue;
    }
    if (IsFrame(marker)) {
      header.height = Number(bytes, at + 5, 2);
      header.width = Number(bytes, at + 7, 2);
      return header;
    }
    if (marker == 0xE0 && bytes.substr(at + 4, 5) == "JFIF\0"sv) {
      const std::uint32_t unit = Number(bytes, at + 11, 1);
      const double inch = unit == 1 ? 1 : unit == 2 ? kCentimetres : 0;
      header.horizontal = Number(bytes, at + 12, 2) * inch;
      header.vertical = Number(bytes, at + 14, 2) * inch;
    }
    at += Number(bytes, at + 2, 2) + 2;
  }
  return std::nullopt;
}

}  // namespace

std::optional<ImageHeader> ReadImageHeader(std::string_view bytes) {
  std::optional<ImageHeader> header;
  if (bytes.starts_with(kPngStart)) header = ReadPng(bytes);
  if (bytes.starts_with("\xFF\xD8")) header = ReadJpeg(bytes);
  if (header && (header->width == 0 || header->height == 0)) return std::nullopt;
  if (bytes.starts_with("GIF8")) header = {ImageKind::Gif, 0, 0, 0, 0};
  if (bytes.starts_with("BM")) header = {ImageKind::Bmp, 0, 0, 0, 0};
  return header;
}

}  // namespace quillary::platform

#include "platform/pictures/bitmap.h"

#include <algorithm>
#include <array>
#include <bit>
#include <vector>

#include "platform/pictures/byte_reader.h"
#include "text/limits.h"

namespace quillary::platform {
namespace {

enum Compression : std::uint32_t { kPlain = 0, kRle8 = 1, kRle4 = 2, kBitFields = 3 };

struct Colour {
  std::uint8_t red = 0, green = 0, blue = 0;
};

struct Header {
  std::uint32_t size = 0;
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  bool from_top = false;
  std::uint32_t bits = 0;
  std::uint32_t compression = kPlain;
  std::array<std::uint32_t, 3> masks{};  // of red, green and blue
  std::size_t palette_at = 0;
  std::size_t pixels_at = 0;
  std::vector<Colour> palette;
};

constexpr std::uint32_t kOldHeader = 12;
constexpr std::uint32_t kHeader = 40;

std::optional<Header> ReadHeader(std::string_view bytes) {
  const ByteReader reader(bytes);
  Header header;
  header.size = reader.Long(0);
  const bool old = header.size == kOldHeader;
  if (!old && (header.size < kHeader || header.size > 1000)) return std::nullopt;
  const std::int64_t width = old ? static_cast<std::int64_t>(reader.Word(4)) : reader.SignedLong(4);
  const std::int64_t height = old ? static_cast<std::int64_t>(reader.Word(6)) : reader.SignedLong(8);
  header.bits = reader.Word(old ? 10 : 14);
  header.compression = old ? kPlain : reader.Long(16);
  header.from_top = height < 0;
  const std::int64_t rows = height < 0 ? -height : height;
  if (width <= 0 || rows <= 0 ||
      static_cast<std::uint64_t>(width) * static_cast<std::uint64_t>(rows) > limits::kPicturePixels) {
    return std::nullopt;
  }
  header.width = static_cast<std::uint32_t>(width);
  header.height = static_cast<std::uint32_t>(rows);
  constexpr std::uint32_t kDepths[] = {1, 4, 8, 16, 24, 32};
  if (std::find(std::begin(kDepths), std::end(kDepths), header.bits) == std::end(kDepths))
    return std::nullopt;
  if (header.compression > kBitFields) return std::nullopt;

  std::size_t at = header.size;
  header.masks = {0xFF0000, 0xFF00, 0xFF};
  if (header.bits == 16) header.masks = {0x7C00, 0x3E0, 0x1F};
  if (header.compression == kBitFields) {
    for (std::size_t i = 0; i < 3; ++i) header.masks[i] = reader.Long(kHeader + 4 * i);
    if (header.size == kHeader) at += 12;
  }
  const std::size_t most = header.bits <= 8 ? std::size_t{1} << header.bits : 0;
  std::size_t colours = old ? most : reader.Long(32);
  if (colours == 0 || (most > 0 && colours > most)) colours = most;
  if (most == 0) colours = std::min<std::size_t>(colours, 256);
  const std::size_t entry = old ? 3 : 4;
  header.palette_at = at;
  for (std::size_t i = 0; i < most; ++i) {
    const std::size_t place = at + entry * i;
    if (i >= colours) {
      header.palette.push_back({});
      continue;
    }
    header.palette.push_back({static_cast<std::uint8_t>(reader.Byte(place + 2)),
                              static_cast<std::uint8_t>(reader.Byte(place + 1)),
                              static_cast<std::uint8_t>(reader.Byte(place))});
  }
  header.pixels_at = at + entry * colours;
  return header;
}

void Put(Image& image, const Header& header, std::uint32_t x, std::uint32_t row, Colour colour) {
  if (x >= header.width || row >= header.height) return;
  std::uint8_t* pixel = image.At(x, header.from_top ? row : header.height - 1 - row);
  pixel[0] = colour.red;
  pixel[1] = colour.green;
  pixel[2] = colour.blue;
}

std::uint8_t Part(std::uint32_t pixel, std::uint32_t mask) {
  if (mask == 0) return 0;
  const int shift = std::countr_zero(mask);
  const std::uint64_t most = mask >> shift;
  return static_cast<std::uint8_t>(((pixel & mask) >> shift) * std::uint64_t{255} / most);
}

void ReadRows(Image& image, const Header& header, const ByteReader& reader) {
  const std::size_t row_bytes = (std::size_t{header.width} * header.bits + 31) / 32 * 4;
  for (std::uint32_t row = 0; row < header.height && row * row_bytes < reader.size(); ++row) {
    const std::size_t start = row * row_bytes;
    for (std::uint32_t x = 0; x < header.width; ++x) {
      const std::size_t bit = std::size_t{x} * header.bits;
      const std::size_t at = start + bit / 8;
      if (at >= reader.size()) break;
      if (header.bits <= 8) {
        const std::uint32_t index =
            reader.Byte(at) >> (8 - header.bits - bit % 8) & ((1U << header.bits) - 1);
        Put(image, header, x, row, header.palette[index]);
        continue;
      }
      const std::uint32_t pixel =
          header.bits == 16 ? reader.Word(at) : reader.Long(at) & (header.bits == 24 ? 0xFFFFFFU : ~0U);
      Put(image, header, x, row,
          {Part(pixel, header.masks[0]), Part(pixel, header.masks[1]), Part(pixel, header.masks[2])});
    }
  }
}

// Runs of one index, and stretches of indices, with escapes that move on.
void ReadRuns(Image& image, const Header& header, const ByteReader& reader) {
  const bool nibbles = header.compression == kRle4;
  std::uint32_t x = 0;
  std::uint32_t row = 0;
  const auto put = [&](std::uint32_t index) {
    Put(image, header, x, row, index < header.palette.size() ? header.palette[index] : Colour());
    ++x;
  };
  for (std::size_t at = 0; at + 1 < reader.size() && row < header.height;) {
    const std::uint32_t count = reader.Byte(at);
    const std::uint32_t value = reader.Byte(at + 1);
    at += 2;
    if (count > 0) {
      for (std::uint32_t i = 0; i < count; ++i) put(nibbles ? (i % 2 == 0 ? value >> 4 : value & 15) : value);
    } else if (value == 0) {
      x = 0;
      ++row;
    } else if (value == 1) {
      return;
    } else if (value == 2) {
      x = std::min(x + reader.Byte(at), header.width);
      row += reader.Byte(at + 1);
      at += 2;
    } else {
      for (std::uint32_t i = 0; i < value; ++i) {
        const std::uint32_t byte = reader.Byte(at + (nibbles ? i / 2 : i));
        put(nibbles ? (i % 2 == 0 ? byte >> 4 : byte & 15) : byte);
      }
      const std::size_t bytes = nibbles ? (value + 1) / 2 : value;
      at += bytes + bytes % 2;
    }
  }
}

std::optional<Image> Decode(const Header& header, std::string_view pixels) {
  const bool runs = header.compression == kRle8 || header.compression == kRle4;
  if (runs && header.bits != (header.compression == kRle8 ? 8U : 4U)) return std::nullopt;
  Image image = Image::Blank(header.width, header.height);
  std::fill(image.pixels.begin(), image.pixels.end(), std::uint8_t{255});
  (runs ? ReadRuns : ReadRows)(image, header, ByteReader(pixels));
  return image;
}

}  // namespace

std::optional<Image> DecodeDib(std::string_view bytes) {
  const std::optional<Header> header = ReadHeader(bytes);
  if (!header) return std::nullopt;
  return Decode(*header, ByteReader(bytes).From(header->pixels_at));
}

std::optional<Image> DecodeDib(std::string_view header_bytes, std::string_view pixels) {
  const std::optional<Header> header = ReadHeader(header_bytes);
  if (!header) return std::nullopt;
  return Decode(*header, pixels);
}

std::optional<Image> DecodeBmp(std::string_view bytes) {
  constexpr std::size_t kFileHeader = 14;
  const ByteReader reader(bytes);
  if (reader.From(0, 2) != "BM") return std::nullopt;
  return DecodeDib(reader.From(kFileHeader), reader.From(reader.Long(10)));
}

std::optional<Image> DecodeDeviceBitmap(std::string_view pixels, std::uint32_t width, std::uint32_t height,
                                        std::uint32_t row_bytes, std::uint32_t bits) {
  if (width == 0 || height == 0 || std::uint64_t{width} * height > limits::kPicturePixels)
    return std::nullopt;
  if (bits != 1 && bits != 24 && bits != 32) return std::nullopt;
  Image image = Image::Blank(width, height);
  const ByteReader reader(pixels);
  for (std::uint32_t y = 0; y < height; ++y) {
    for (std::uint32_t x = 0; x < width; ++x) {
      std::uint8_t* pixel = image.At(x, y);
      const std::size_t at = std::size_t{y} * row_bytes + std::size_t{x} * bits / 8;
      for (std::size_t i = 0; i < 3; ++i) {
        const std::uint32_t value =
            bits == 1 ? (reader.Byte(at) >> (7 - x % 8) & 1) * 255 : reader.Byte(at + 2 - i);
        pixel[i] = static_cast<std::uint8_t>(at < reader.size() ? value : 255);
      }
      pixel[3] = 255;
    }
  }
  return image;
}

}  // namespace quillary::platform

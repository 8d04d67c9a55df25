// Numbers in little-endian bytes. What lies beyond the end reads as 0.
#pragma once

#include <cstdint>
#include <string_view>

namespace quillary::platform {

class ByteReader {
 public:
  explicit ByteReader(std::string_view bytes) : bytes_(bytes) {}

  std::size_t size() const { return bytes_.size(); }
  std::uint32_t Byte(std::size_t at) const {
    return at < bytes_.size() ? static_cast<unsigned char>(bytes_[at]) : 0U;
  }
  std::uint32_t Word(std::size_t at) const { return Byte(at) | Byte(at + 1) << 8; }
  std::uint32_t Long(std::size_t at) const { return Word(at) | Word(at + 2) << 16; }
  std::int32_t SignedWord(std::size_t at) const { return static_cast<std::int16_t>(Word(at)); }
  std::int32_t SignedLong(std::size_t at) const { return static_cast<std::int32_t>(Long(at)); }
  /// At most so many bytes from there on.
  std::string_view From(std::size_t at, std::size_t count = std::string_view::npos) const {
    return at < bytes_.size() ? bytes_.substr(at, count) : std::string_view();
  }

 private:
  std::string_view bytes_;
};

}  // namespace quillary::platform

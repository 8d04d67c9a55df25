#include "platform/rich_text/reader/byte_text.h"

#include <array>
#include <utility>

#include "platform/code_pages/code_pages.h"
#include "text/encodings.h"

namespace quillary::platform::rtf {
namespace {

constexpr int kUtf8 = 65001;

/// Length of the UTF-8 sequence that a byte opens; 1 for any other byte.
std::size_t SequenceLength(unsigned char byte) {
  if (byte >= 0xF0 && byte <= 0xF4) return 4;
  if (byte >= 0xE0 && byte <= 0xEF) return 3;
  if (byte >= 0xC2 && byte <= 0xDF) return 2;
  return 1;
}

bool IsContinuation(unsigned char byte) { return byte >= 0x80 && byte <= 0xBF; }

std::size_t IncompleteUtf8(std::string_view bytes) {
  for (std::size_t back = 1; back <= 3 && back <= bytes.size(); ++back) {
    const auto byte = static_cast<unsigned char>(bytes[bytes.size() - back]);
    if (!IsContinuation(byte)) return SequenceLength(byte) > back ? back : 0;
  }
  return 0;
}

}  // namespace

char16_t WesternCharacter(unsigned char byte) {
  static const std::array<char16_t, 256> kTable = [] {
    std::array<char16_t, 256> units{};
    for (std::size_t index = 0; index < units.size(); ++index) {
      const char narrow = static_cast<char>(index);
      units[index] = FromWindows1252({&narrow, 1}).front();
    }
    return units;
  }();
  return kTable[byte];
}

Text DecodePage(int code_page, std::string_view bytes) {
  if (code_page == kUtf8) return FromUtf8(bytes);
  if (code_page == kWesternPage || !IsKnownCodePage(code_page)) return FromWindows1252(bytes);
  return DecodeBytes(code_page, bytes);
}

void ByteText::Add(unsigned char byte, int code_page) {
  code_page_ = code_page;
  bytes_ += static_cast<char>(byte);
}

std::size_t ByteText::IncompleteTail() const {
  if (code_page_ == kUtf8) return IncompleteUtf8(bytes_);
  std::size_t at = 0;
  while (at < bytes_.size()) {
    if (!IsLeadByte(code_page_, static_cast<unsigned char>(bytes_[at]))) {
      ++at;
    } else if (at + 1 == bytes_.size()) {
      return 1;
    } else {
      at += 2;
    }
  }
  return 0;
}

Text ByteText::TakeComplete() {
  const std::size_t tail = IncompleteTail();
  if (tail == bytes_.size()) return {};
  std::string rest = bytes_.substr(bytes_.size() - tail);
  bytes_.resize(bytes_.size() - tail);
  Text text = DecodePage(code_page_, bytes_);
  bytes_ = std::move(rest);
  return text;
}

Text ByteText::TakeAll() {
  Text text = DecodePage(code_page_, bytes_);
  bytes_.clear();
  return text;
}

bool ByteText::TakesAsSecond(char16_t unit) const {
  constexpr char16_t kFirstSecond = 0x40;
  return code_page_ != kUtf8 && unit >= kFirstSecond && unit < 0x7F && !bytes_.empty() &&
         IncompleteTail() == 1;
}

}  // namespace quillary::platform::rtf

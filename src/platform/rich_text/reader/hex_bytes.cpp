#include "platform/rich_text/reader/hex_bytes.h"

#include <utility>

#include "text/ascii.h"
#include "text/encodings.h"

namespace quillary::platform::rtf {

void HexBytes::Add(TextView digits) {
  for (const char16_t unit : digits) {
    const int digit = HexDigitValue(unit);
    if (digit < 0) continue;
    if (pending_ < 0) {
      pending_ = digit;
    } else {
      bytes_ += static_cast<char>(pending_ * 16 + digit);
      pending_ = -1;
    }
  }
}

void HexBytes::AddRaw(TextView bytes) {
  bytes_.reserve(bytes_.size() + bytes.size());
  for (const char16_t unit : bytes) {
    const int byte = RawByte(unit);
    bytes_ += static_cast<char>(byte < 0 ? unit : byte);
  }
}

std::string HexBytes::Take() {
  pending_ = -1;
  return std::exchange(bytes_, {});
}

}  // namespace quillary::platform::rtf

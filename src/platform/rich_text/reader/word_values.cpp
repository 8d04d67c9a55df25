#include "platform/rich_text/reader/word_values.h"

#include <algorithm>

namespace quillary::platform::rtf {

bool IsOn(const Token& token) { return !token.has_number || token.number != 0; }

std::int32_t Twips(std::int32_t number) {
  constexpr std::int32_t kWidest = 31680;  // 22 inches
  return std::clamp(number, -kWidest, kWidest);
}

std::uint16_t Language(std::int32_t number) {
  constexpr std::int32_t kGreek = 1032;
  constexpr std::int32_t kTurkish = 1055;
  if (number <= 0 || number > 0xFFFF || number == kGreek || number == kTurkish) return 0;
  return static_cast<std::uint16_t>(number);
}

}  // namespace quillary::platform::rtf

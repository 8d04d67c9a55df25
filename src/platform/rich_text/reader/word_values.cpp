#include "platform/rich_text/reader/word_values.h"

#include <algorithm>

namespace quillary::platform::rtf {

bool IsOn(const Token& token) { return !token.has_number || token.number != 0; }

std::int32_t Twips(std::int32_t number) {
  constexpr std::int32_t kWidest = 31680;  // 22 inches
  return std::clamp(number, -kWidest, kWidest);
}

}  // namespace quillary::platform::rtf

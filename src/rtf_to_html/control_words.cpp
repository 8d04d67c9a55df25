#include "rtf_to_html/control_words.h"

#include <limits>

#include "text/failure.h"

namespace quillary::modQuillary {

std::optional<TextView> NumberBehind(TextView word, TextView prefix) {
  if (!word.starts_with(prefix)) return std::nullopt;
  word.remove_prefix(prefix.size());
  if (!IsNumeric(word)) return std::nullopt;
  return word;
}

std::int32_t WholeNumber(TextView numeric) {
  std::int32_t value = 0;
  if (!Attempt([&] { value = ToInteger32(numeric); })) {
    const bool negative = numeric.find(u'-') != TextView::npos;
    value = negative ? std::numeric_limits<std::int32_t>::min() : std::numeric_limits<std::int32_t>::max();
  }
  return value;
}

const Text* EntryAt(const TextList& list, std::int32_t number) {
  return list.has(number) ? &list[number] : nullptr;
}

}  // namespace quillary::modQuillary

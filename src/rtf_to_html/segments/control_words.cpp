#include "rtf_to_html/segments/control_words.h"

#include <algorithm>
#include <limits>

#include "text/failure.h"
#include "text/search.h"

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

bool CutWord(TextView& word) {
  for (const char16_t end : {u' ', u'\\', u'&', u'<'}) {
    const std::size_t at = word.find(end, 2);
    if (at != TextView::npos) {
      word = word.substr(0, at);
      return true;
    }
  }
  return false;
}

std::vector<std::int32_t> NumbersBehind(TextView text, TextView word, std::int32_t last) {
  std::vector<std::int32_t> numbers;
  const Finder finder(word, Compare::IgnoreCase);
  for (std::size_t at = finder.Next(text, 0); at != Finder::npos; at = finder.Next(text, at + 1)) {
    ForEachNumberAt(text.substr(at + word.size()), last,
                    [&](std::int32_t number, std::size_t) { numbers.push_back(number); });
  }
  std::sort(numbers.begin(), numbers.end());
  numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
  return numbers;
}

}  // namespace quillary::modQuillary

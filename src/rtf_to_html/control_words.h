// Control words and the numbers behind them.
#pragma once

#include <cstdint>
#include <optional>

#include "text/text.h"

namespace quillary::modQuillary {

/// The text behind `prefix` if the word begins with it and the rest is numeric.
std::optional<TextView> NumberBehind(TextView word, TextView prefix);

/// The value of a numeric text, rounded; the nearest one that there is for a
/// number beyond 32 bits.
std::int32_t WholeNumber(TextView numeric);

/// The entry of a list by an RTF number; null if the list has none.
const Text* EntryAt(const TextList& list, std::int32_t number);

/// Calls `use` for each word of a text that is cut at its backslashes; the
/// backslashes belong to no word. An empty text has no words.
template <class Use>
void ForEachWord(TextView text, Use use) {
  while (!text.empty()) {
    const std::size_t end = text.find(u'\\');
    use(text.substr(0, end));
    if (end == TextView::npos) return;
    text.remove_prefix(end + 1);
  }
}

}  // namespace quillary::modQuillary

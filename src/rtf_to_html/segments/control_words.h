// Control words and the numbers after them.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "text/ascii.h"
#include "text/text.h"

namespace quillary::modQuillary {

/// The text after `prefix` if the word begins with it and the rest is numeric.
std::optional<TextView> NumberAfter(TextView word, TextView prefix);

/// The value of a numeric text, rounded; the nearest one that there is for a
/// number beyond 32 bits.
std::int32_t WholeNumber(TextView numeric);

/// The entry of a list by an RTF number; null if the list has none.
const Text* EntryAt(const TextList& list, std::int32_t number);

/// Cuts a font, size or colour word off where it ends: at a space if there is
/// one, else at a backslash, else at an ampersand, else at a tag. Returns
/// whether it ends.
bool CutWord(TextView& word);

/// The numbers from 0 to `last`, in rising order, that stand after `word`
/// somewhere in the text. "12" counts as 1 and as 12.
std::vector<std::int32_t> NumbersAfter(TextView text, TextView word, std::int32_t last);

/// Calls `use` with each number from 0 to `last` that the text begins with, and
/// its length: "12" begins with 1 and with 12.
template <class Use>
void ForEachNumberAt(TextView text, std::int32_t last, Use use) {
  std::int32_t number = 0;
  for (std::size_t i = 0; i < text.size() && IsAsciiDigit(text[i]); ++i) {
    number = number * 10 + (text[i] - u'0');
    if (number > last) return;
    use(number, i + 1);
    if (number == 0) return;  // no number begins with a nought
  }
}

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

#include "page_reader/character_names.h"

#include <algorithm>
#include <iterator>

#include "text/ascii.h"

namespace quillary::page_reader {
namespace {

#include "page_reader/character_names.inc"

static_assert(std::ranges::is_sorted(kCharacterNames, {}, &CharacterName::name));

constexpr std::size_t LongestName(bool bare) {
  std::size_t longest = 0;
  for (const CharacterName& row : kCharacterNames) {
    if (row.bare || !bare) longest = std::max(longest, row.name.size());
  }
  return longest;
}

constexpr std::size_t kLongest = LongestName(false);
constexpr std::size_t kLongestBare = LongestName(true);

const CharacterName* FindName(TextView name) {
  const auto* const found = std::ranges::lower_bound(kCharacterNames, name, {}, &CharacterName::name);
  return found != std::end(kCharacterNames) && found->name == name ? found : nullptr;
}

}  // namespace

CharacterNameMatch MatchCharacterName(TextView text) {
  const TextView word = text.substr(0, kLongest + 1);
  const auto length = static_cast<std::size_t>(
      std::ranges::find_if_not(word, [](char16_t unit) { return IsAsciiAlphanumeric(unit); }) - word.begin());
  if (length < word.size() && word[length] == u';') {
    if (const CharacterName* name = FindName(word.substr(0, length))) return {name, length + 1};
  }
  for (std::size_t bare = std::min(length, kLongestBare); bare > 0; --bare) {
    const CharacterName* name = FindName(word.substr(0, bare));
    if (name != nullptr && name->bare) return {name, bare};
  }
  return {};
}

}  // namespace quillary::page_reader

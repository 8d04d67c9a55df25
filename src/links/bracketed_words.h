// The words "&lt;...&gt;" of a page that is edited from left to right. A label
// is turned into an anchor where the text "label &lt;target&gt; " stands first
// in the whole page; looking such words up by what they hold spares a search of
// the page for each label.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "links/page_editor.h"

namespace quillary::links {

/// Knows every word between two spaces that begins with "&lt;" and ends with
/// "&gt;", case ignored. Changes to the page may destroy such words, but must
/// not make new ones.
class BracketedWords {
 public:
  explicit BracketedWords(PageEditor& page);

  /// To be called before each change of the page: nothing in front of this
  /// offset will change any more.
  void FreezeBefore(const PageEditor& page, std::size_t before);

  /// Offset of the first `text` in the page, case ignored, or npos. The text is
  /// a label, a space, a bracketed word and a space; the word begins at
  /// `word_at` and is the only one in it.
  std::size_t First(const PageEditor& page, TextView text, std::size_t word_at) const;

 private:
  std::size_t OffsetOf(const PageEditor& page, std::size_t index) const;

  // In the order of the page. Frozen words are counted from the page's start,
  // the others from its end.
  std::vector<std::size_t> words_;
  std::size_t frozen_ = 0;
  std::unordered_map<std::uint64_t, std::vector<std::size_t>> by_content_;
};

}  // namespace quillary::links

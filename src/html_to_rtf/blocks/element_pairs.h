// The start and end tags of one element in a page, and which end tag ends which
// element, as ExtractElement finds them one by one, for all of them in one pass.
#pragma once

#include <cstddef>
#include <vector>

#include "text/text.h"

namespace quillary::HTMLRTFConverter {

/// Tags are told apart by the prefixes "<NAME" and "</NAME", in any case. They are numbered
/// in the order of the page, from 0.
class ElementPairs {
 public:
  static constexpr std::size_t npos = static_cast<std::size_t>(-1);

  struct Tag {
    std::size_t at = 0;  // offset of its "<"
    bool opens = false;
    bool taken = false;
    std::size_t partner = npos;  // the tag at the other end, in a page that is balanced from here on
  };

  /// `name` is in upper case.
  ElementPairs(TextView page, TextView name);

  const std::vector<Tag>& tags() const { return tags_; }

  /// The end tag of that element: its partner, or, where that is missing, the last end tag
  /// of the page. npos if none is left after the start tag.
  std::size_t EndOf(std::size_t start) const;

  /// Takes both tags of that element out of the page.
  void Take(std::size_t start, std::size_t end);

 private:
  std::vector<Tag> tags_;
  std::size_t last_end_ = npos;
};

}  // namespace quillary::HTMLRTFConverter

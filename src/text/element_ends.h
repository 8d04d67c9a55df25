// Where the elements of a page end, as ExtractElement finds it, for many elements of one
// page at the cost of one pass for each name.
#pragma once

#include <cstddef>
#include <unordered_map>
#include <vector>

#include "text/text.h"

namespace quillary {

/// The end of an element; offsets from 0.
struct ElementEnd {
  static constexpr std::size_t npos = static_cast<std::size_t>(-1);
  std::size_t tag = npos;    // of the "<" of its end tag
  std::size_t after = npos;  // after the ">" of that

  bool found() const { return after != npos; }
};

/// The end that ExtractElement(upper.substr(start), name) finds: both are in upper case and
/// the name stands at `start` after its "<". Not found where that fails or gives nothing.
ElementEnd FindElementEnd(TextView upper, std::size_t start, TextView name);

/// The same for the elements of a page that does not change.
class ElementEnds {
 public:
  /// `upper` is the page in upper case, and must outlive the object.
  explicit ElementEnds(TextView upper);

  ElementEnd Of(std::size_t start, TextView name);

 private:
  struct Element {
    std::size_t open;
    std::size_t close;  // of the end tag that balances it, or npos
  };
  struct Named {
    std::vector<Element> elements;  // in the order of the page
    std::size_t last_close = ElementEnd::npos;
  };
  const Named& Elements(TextView name);

  ElementEnd EndAt(std::size_t close) const;

  TextView upper_;
  std::vector<std::size_t> tag_ends_;  // the offsets of all ">"
  // The offsets of all "<", in the order of what stands after "<" and after "</".
  std::vector<std::size_t> by_open_;
  std::vector<std::size_t> by_close_;
  std::unordered_map<Text, Named> named_;
};

}  // namespace quillary

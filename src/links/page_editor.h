// A page that is edited from left to right. What stands after the last change is moved only when a change is
// made further on, so that a thousand changes cost no more than one copy of the page.
#pragma once

#include <utility>

#include "text/text.h"

namespace quillary::links {

class PageEditor {
 public:
  explicit PageEditor(Text text);

  std::int32_t Size() const;
  /// The unit at a 1-based position that lies inside the page.
  char16_t At(std::int32_t position) const;

  /// As Mid and FindText of the vocabulary on the page.
  Text Mid(std::int32_t start, std::int32_t count) const;
  bool StandsAt(std::int32_t start, TextView text, Compare mode) const;

  /// The page from a position, which is at least 1, to its end. The view dies
  /// with the next change or the next call.
  TextView From(std::int32_t start);

  /// Replaces `count` units from `start`. Throws LimitReached if the page
  /// becomes too long.
  void Replace(std::int32_t start, std::int32_t count, TextView with);

  /// The page, which leaves the object empty.
  Text Take();

 private:
  void MoveGap(std::size_t offset);
  void Widen(std::size_t units);

  Text buffer_;  // the units before the gap, the gap, the units after it
  std::size_t gap_begin_ = 0;
  std::size_t gap_end_ = 0;
};

/// Edits a page in place: as the editor then holds it, it is back at the end,
/// come what may.
class InPlaceEditor {
 public:
  explicit InPlaceEditor(Text& page) : page_(page), editor_(std::move(page)) {}
  InPlaceEditor(const InPlaceEditor&) = delete;
  InPlaceEditor& operator=(const InPlaceEditor&) = delete;
  ~InPlaceEditor() { page_ = editor_.Take(); }

  PageEditor& editor() { return editor_; }

 private:
  Text& page_;
  PageEditor editor_;
};

}  // namespace quillary::links

// A page that is edited from left to right. What stands after the last change is moved only when a change is
// made further on, so that a thousand changes cost no more than one copy of the page.
#pragma once

#include <utility>

#include "text/text.h"

namespace quillary::links {

class PageEditor {
 public:
  /// Throws LimitReached for a page that is too long to be addressed.
  explicit PageEditor(Text text);

  std::size_t Size() const { return buffer_.size() - (gap_end_ - gap_begin_); }
  /// The unit at an offset that lies inside the page.
  char16_t At(std::size_t offset) const;

  /// A copy of `count` units, of fewer at the end of the page.
  Text Copy(std::size_t offset, std::size_t count) const;
  bool StandsAt(std::size_t offset, TextView text, Compare mode) const;
  /// Whether `text` ends at the offset.
  bool StandsBefore(std::size_t offset, TextView text, Compare mode) const;

  /// The page from an offset to its end. The view dies with the next change or
  /// the next call.
  TextView From(std::size_t offset);

  /// Replaces `count` units from the offset on. Throws LimitReached if the page
  /// becomes too long.
  void Replace(std::size_t offset, std::size_t count, TextView with);

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

// How both scans of links walk a page: from prefix to prefix, each time over
// the stretch of text up to the next delimiter.
#pragma once

#include "apartment/rtf_to_html_state.h"
#include "links/leftmost_literal.h"
#include "links/page_editor.h"

namespace quillary::links {

/// A stretch of so many units is too short for a link.
inline constexpr std::size_t kLongestStretchWithoutLink = 3;

class LinkStretches {
 public:
  /// Throws Failure: subscript if the lists of the state were never sized,
  /// argument for an empty page. The lists and the page must outlive it.
  LinkStretches(const RtfToHtmlState& state, PageEditor& page);

  /// Goes on to the leftmost prefix at or after the cursor. The stretch begins
  /// with the prefix or after it and ends with the next delimiter, at the
  /// latest `longest` units further on; the cursor then stands at this end. A
  /// full stop in front of the end is not part of the stretch. False when there
  /// is no prefix any more.
  bool Next(bool with_prefix, std::size_t longest);

  TextView prefix() const { return prefix_; }
  /// Offsets; the end can lie beyond that of the page, and one in front of the start.
  std::size_t start() const { return start_; }
  std::size_t end() const { return end_; }
  /// The text from the start up to the end, and with the unit at the end.
  Text UpToEnd() const;
  Text ThroughEnd() const;

  /// The stretch was replaced: so many units became so many others.
  void MoveCursor(std::size_t units, std::size_t new_units) { cursor_ = cursor_ + new_units - units; }

 private:
  PageEditor& page_;
  LeftmostLiteral prefixes_;
  LeftmostLiteral delimiters_;
  LeftmostLiteral delimiters_of_paths_;
  TextView prefix_;
  std::size_t cursor_ = 0;
  std::size_t start_ = 0;
  std::size_t end_ = 0;
};

}  // namespace quillary::links

// The table as far as it is balanced: a text that grows at its end and after
// its last cell end, both in time that depends on what is added only.
#pragma once

#include <cstddef>
#include <deque>

#include "text/text.h"

namespace quillary::RepairHTMLTable {

class GrowingTable {
 public:
  void Append(TextView piece) { back_.insert(back_.end(), piece.begin(), piece.end()); }

  /// Puts `insert` after the tag that the last of the tag starts opens, as
  /// InsertAfterLastTag does. A cell end is to be appended next: that pays for
  /// the part that is searched and moved here.
  void InsertAfterLastTag(TextView tag_starts, TextView insert);

  /// The same with "</TD"; nothing need follow.
  void InsertAfterLastCellEnd(TextView insert);

  /// The table as one text, which can be changed and appended to.
  Text& Whole();

 private:
  void MoveThroughLastCellEnd(std::size_t first, std::size_t end);

  // The text is `front_`, then `back_`. Once a cell has ended in front of
  // `searched_`, `front_` ends after the tag of the last such end.
  Text front_;
  std::deque<char16_t> back_;
  std::size_t searched_ = 0;  // units of back_ known to begin no cell end
  bool cell_ended_ = false;
};

}  // namespace quillary::RepairHTMLTable

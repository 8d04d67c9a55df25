#include "table_repair/growing_table.h"

#include <algorithm>

#include "table_repair/table_tags.h"
#include "text/ascii.h"

namespace quillary::RepairHTMLTable {
namespace {

constexpr TextView kCellEnd = u"</TD";

}  // namespace

Text& GrowingTable::Whole() {
  front_.append(back_.begin(), back_.end());
  back_.clear();
  searched_ = 0;
  return front_;
}

void GrowingTable::InsertAfterLastTag(TextView tag_starts, TextView insert) {
  Text& whole = Whole();
  const std::size_t offset = OffsetAfterLastTag(whole, tag_starts);
  if (offset != Text::npos) whole.insert(offset, insert);
}

void GrowingTable::InsertAfterLastCellEnd(TextView insert) {
  MoveThroughLastCellEnd(searched_, back_.size());
  searched_ = back_.size();
  if (!cell_ended_) return;
  back_.insert(back_.begin(), insert.begin(), insert.end());
  searched_ += insert.size();
  MoveThroughLastCellEnd(0, insert.size());
}

// Looks for the last cell end that begins among these units of `back_` and
// moves what leads up to it, its tag included, to `front_`. A stretch that is put
// at the very end may bring a cell end whose ">" is only appended next: that one
// is looked for again.
void GrowingTable::MoveThroughLastCellEnd(std::size_t first, std::size_t end) {
  const auto begin = back_.begin();
  const auto limit = begin + static_cast<std::ptrdiff_t>(end);
  auto last = back_.end();
  for (auto at = begin + static_cast<std::ptrdiff_t>(first); at != limit; ++at) {
    if (*at != u'<' || back_.end() - at < static_cast<std::ptrdiff_t>(kCellEnd.size())) continue;
    if (std::equal(kCellEnd.begin(), kCellEnd.end(), at,
                   [](char16_t upper, char16_t unit) { return AsciiUpper(unit) == upper; })) {
      last = at;
    }
  }
  if (last == back_.end()) return;
  auto close = std::find(last, back_.end(), u'>');
  if (close == back_.end()) {
    searched_ = static_cast<std::size_t>(last - begin);
    return;
  }
  ++close;
  searched_ -= std::min(searched_, static_cast<std::size_t>(close - begin));
  front_.append(begin, close);
  back_.erase(begin, close);
  cell_ended_ = true;
}

}  // namespace quillary::RepairHTMLTable

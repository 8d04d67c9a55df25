#include "table_repair/span_short_rows.h"

#include <algorithm>
#include <string>
#include <vector>

#include "text/integer16.h"
#include "text/search.h"

namespace quillary::RepairHTMLTable {
namespace {

struct RowExtent {
  std::int32_t LastCellPos = 0;  // after the "<TD" of the last cell; without a cell, inside the row's tag
  Integer16 CellCount;
};

// A search whose start only ever rises; a hit that still lies ahead is kept.
class RisingSearch {
 public:
  RisingSearch(TextView text, TextView find) : text_(text), finder_(find, Compare::IgnoreCase) {}

  /// As FindText.
  std::int32_t At(std::int32_t start) {
    const auto from = static_cast<std::size_t>(start) - 1;
    if (!searched_ || (hit_ != Finder::npos && hit_ < from)) hit_ = finder_.Next(text_, from);
    searched_ = true;
    return hit_ == Finder::npos ? 0 : static_cast<std::int32_t>(hit_) + 1;
  }

 private:
  TextView text_;
  Finder finder_;
  std::size_t hit_ = 0;
  bool searched_ = false;
};

class Spanning {
 public:
  explicit Spanning(TextView table) : table_(table) {}

  Text Run() {
    try {
      MeasureRows();
      return WriteRows();
    } catch (const Failure& failure) {
      throw Failure(failure.kind(), failure.code(), "HTMLParser::repairTable",
                    failure.what() + std::string(" offset=") + std::to_string(position_) +
                        ",row=" + std::to_string(row_ + 1));
    }
  }

 private:
  void MeasureRows() {
    RisingSearch row_start(table_, u"<TR");
    RisingSearch row_end(table_, u"</TR");
    RisingSearch cell(table_, u"<TD");
    for (std::int32_t start = row_start.At(1); start != 0; ++row_) {
      position_ = start + 4;
      const std::int32_t end = row_end.At(position_);
      if (end == 0) throw Failure(Failure::Kind::Raised, 0x800400C9, "", "End row not found");
      RowExtent extent;
      for (std::int32_t at = cell.At(position_); at != 0 && at < end; at = cell.At(position_)) {
        extent.LastCellPos = at + 3;
        ++extent.CellCount;
        position_ = extent.LastCellPos + 4;
      }
      if (extent.CellCount == 0) extent.LastCellPos = position_;
      widest_ = std::max(widest_, extent.CellCount);
      extents_.push_back(extent);
      start = row_start.At(end + 4);
    }
  }

  Text WriteRows() {
    Text output;
    std::int32_t written = 1;
    TextView form;
    for (position_ = 0; position_ < static_cast<std::int32_t>(extents_.size()); ++position_) {
      const RowExtent& extent = extents_[static_cast<std::size_t>(position_)];
      output += MidView(table_, written, extent.LastCellPos - written);
      written = extent.LastCellPos;
      if (extent.CellCount == widest_) continue;
      if (extent.CellCount == 0) {
        output.append(u"<TD colspan=").append(Decimal(widest_)).append(u"></TD>");
      } else {
        output.append(u" colspan=").append(Decimal(widest_ - extent.CellCount + 1));
      }
      if (widest_ == 13 && extent.CellCount == 5) form = u"13-9";
      if (widest_ == 13 && extent.CellCount == 4) form = u"13-10";
    }
    output += MidView(table_, written);
    SpreadForm(output, form);
    return output;
  }

  // A form of 13 columns has its own distribution of the widths.
  static void SpreadForm(Text& table, TextView form) {
    if (form == u"13-9") {
      ReplaceIn(table, u"</td><td>", u"</td><td colspan=3>", Compare::Binary, 3);
      ReplaceIn(table, u"</td><td colspan=9>", u"</td><td colspan=3>", Compare::Binary, 1);
    } else if (form == u"13-10") {
      ReplaceIn(table, u"</td><td>", u"</td><td colspan=1>", Compare::Binary, 1);
      ReplaceIn(table, u"</td><td>", u"</td><td colspan=2>", Compare::Binary, 1);
      ReplaceIn(table, u"</td><td colspan=10>", u"</td><td colspan=9>", Compare::Binary, 1);
    }
  }

  TextView table_;
  std::vector<RowExtent> extents_;
  Integer16 widest_;
  std::int32_t position_ = 0;  // in the text, then of the row
  std::int32_t row_ = 0;
};

}  // namespace

Text SpanShortRows(TextView table) { return Spanning(table).Run(); }

}  // namespace quillary::RepairHTMLTable

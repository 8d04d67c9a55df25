#include "table_repair/span_short_rows.h"

#include <algorithm>
#include <string>
#include <vector>

#include "text/integer16.h"
#include "text/search.h"

namespace quillary::RepairHTMLTable {
namespace {

struct RowExtent {
  std::size_t last_cell = 0;  // offset after the "<TD" of the last cell; without a cell, inside the row's tag
  Integer16 cell_count;
};

// A search whose start only ever rises; a hit that still lies ahead is kept.
class RisingSearch {
 public:
  RisingSearch(TextView text, TextView find) : text_(text), finder_(find, Compare::IgnoreCase) {}

  /// As Finder::Next.
  std::size_t Next(std::size_t from) {
    if (!searched_ || (hit_ != Finder::npos && hit_ < from)) hit_ = finder_.Next(text_, from);
    searched_ = true;
    return hit_;
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
    } catch (const Failure& failure) {
      throw Failure(failure.kind(), failure.code(), "HTMLParser::repairTable",
                    failure.what() + std::string(" offset=") + std::to_string(measured_ + 1) +
                        ",row=" + std::to_string(extents_.size() + 1));
    }
    return WriteRows();
  }

 private:
  void MeasureRows() {
    RisingSearch row_start(table_, u"<TR");
    RisingSearch row_end(table_, u"</TR");
    RisingSearch cell(table_, u"<TD");
    for (std::size_t start = row_start.Next(0); start != Finder::npos;) {
      measured_ = start + 4;
      const std::size_t end = row_end.Next(measured_);
      if (end == Finder::npos) throw Failure(Failure::Kind::Raised, 0x800400C9, "", "End row not found");
      RowExtent extent;
      for (std::size_t at = cell.Next(measured_); at < end; at = cell.Next(measured_)) {
        extent.last_cell = at + 3;
        ++extent.cell_count;
        measured_ = extent.last_cell + 4;
      }
      if (extent.cell_count == 0) extent.last_cell = measured_;
      widest_ = std::max(widest_, extent.cell_count);
      extents_.push_back(extent);
      start = row_start.Next(end + 4);
    }
  }

  Text WriteRows() const {
    Text output;
    std::size_t written = 0;
    TextView form;
    for (const RowExtent& extent : extents_) {
      output += table_.substr(written, extent.last_cell - written);
      written = extent.last_cell;
      if (extent.cell_count == widest_) continue;
      if (extent.cell_count == 0) {
        output.append(u"<TD colspan=").append(Decimal(widest_)).append(u"></TD>");
      } else {
        output.append(u" colspan=").append(Decimal(widest_ - extent.cell_count + 1));
      }
      if (widest_ == 13 && extent.cell_count == 5) form = u"13-9";
      if (widest_ == 13 && extent.cell_count == 4) form = u"13-10";
    }
    output += table_.substr(written);
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
  std::size_t measured_ = 0;  // of the table so far; told in a failure
};

}  // namespace

Text SpanShortRows(TextView table) { return Spanning(table).Run(); }

}  // namespace quillary::RepairHTMLTable

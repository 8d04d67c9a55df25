#include "table_repair/balance_table_tags.h"

#include <algorithm>

#include "table_repair/growing_table.h"
#include "table_repair/table_tags.h"
#include "text/ascii.h"

namespace quillary::RepairHTMLTable {
namespace {

// Text with something in it to see; a tag is something to see here.
bool IsVisible(TextView stretch) {
  return std::any_of(stretch.begin(), stretch.end(),
                     [](char16_t unit) { return !IsAsciiSpaceOrControl(unit); });
}

class Balancing {
 public:
  explicit Balancing(TextView table) : table_(table) {}

  Text Run() {
    for (TableTag tag = NextCellTag(table_, 1); tag.found(); tag = NextCellTag(table_, tag.EndPos + 1)) {
      if (tag.Name == u"/TABLE") {
        CloseTable(tag);
        return std::move(output_.Whole());
      }
      if (tag.Name == u"TR") {
        OpenRow(tag);
      } else if (tag.Name == u"TD") {
        OpenCell(tag);
      } else if (tag.Name == u"/TD") {
        CloseCell(tag);
      } else if (tag.Name == u"/TR") {
        CloseRow(tag);
      } else {
        AppendThrough(tag);
      }
      copy_pos_ = tag.EndPos + 1;
    }
    output_.Append(MidView(table_, copy_pos_));
    return std::move(output_.Whole());
  }

 private:
  TextView StretchBefore(const TableTag& tag) const {
    return MidView(table_, copy_pos_, tag.StartPos - copy_pos_);
  }
  void AppendThrough(const TableTag& tag) {
    output_.Append(MidView(table_, copy_pos_, tag.EndPos - copy_pos_ + 1));
  }
  void AppendFix(TextView stretch, const TableTag& tag, TextView fix) {
    output_.Append(stretch);
    output_.Append(fix);
    copy_pos_ = tag.StartPos;
  }

  void OpenRow(const TableTag& tag) {
    Text fix;
    if (in_cell_) fix = u"</TD>";
    in_cell_ = false;
    if (in_row_) fix += u"</TR>";
    const TextView stretch = StretchBefore(tag);
    if (!fix.empty()) {
      AppendFix(stretch, tag, fix);
    } else if (IsVisible(stretch)) {
      pending_ = stretch;  // waits for the row's first cell; what waited before is lost
      copy_pos_ = tag.StartPos;
    }
    AppendThrough(tag);
    in_row_ = true;
  }

  void OpenCell(const TableTag& tag) {
    Text fix;
    if (!in_row_) fix = u"<TR>";
    in_row_ = true;
    if (in_cell_) fix += u"</TD>";
    const TextView stretch = StretchBefore(tag);
    if (!fix.empty()) {
      AppendFix(stretch, tag, fix);
    } else if (IsVisible(stretch)) {
      pending_ += stretch;
      copy_pos_ = tag.StartPos;
    }
    AppendThrough(tag);
    output_.Append(pending_);
    pending_.clear();
    in_cell_ = true;
  }

  void CloseCell(const TableTag& tag) {
    if (!in_row_) output_.InsertAfterLastTag(u"</TR;<TABLE", u"<TR>");
    in_row_ = true;
    if (!in_cell_) {
      output_.InsertAfterLastTag(u"</TD;<TR", pending_ + u"<TD>");
      pending_.clear();
    }
    AppendThrough(tag);
    in_cell_ = false;
  }

  void CloseRow(const TableTag& tag) {
    const TextView stretch = StretchBefore(tag);
    if (in_cell_) {
      AppendFix(stretch, tag, u"</TD>");
      in_cell_ = false;
    } else if (IsVisible(stretch)) {
      output_.InsertAfterLastCellEnd(stretch);
      copy_pos_ = tag.StartPos;
    }
    AppendThrough(tag);
    in_row_ = false;
  }

  void CloseTable(const TableTag& tag) {
    Text fix;
    if (in_cell_) fix = u"</TD>";
    if (in_row_) fix += u"</TR>";
    const TextView stretch = StretchBefore(tag);
    if (!fix.empty()) {
      AppendFix(stretch, tag, fix);
    } else if (IsVisible(stretch)) {
      PutIntoLastCell(stretch);
      copy_pos_ = tag.StartPos;
    }
    AppendThrough(tag);
  }

  void PutIntoLastCell(TextView stretch) {
    Text& output = output_.Whole();
    for (std::size_t offset = output.size(); offset-- > 0;) {
      if (StandsAt(output, offset, u"</TD>")) {
        output.insert(offset, stretch);
        return;
      }
    }
    output.append(u"<TR><TD>").append(stretch).append(u"</TD></TR>");
  }

  TextView table_;
  GrowingTable output_;
  std::int32_t copy_pos_ = 1;
  bool in_row_ = false;
  bool in_cell_ = false;
  Text pending_;
};

}  // namespace

Text BalanceTableTags(TextView table) { return Balancing(table).Run(); }

}  // namespace quillary::RepairHTMLTable

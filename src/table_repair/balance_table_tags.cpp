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
    for (Tag tag = FindCellTag(table_, 0); tag.found(); tag = FindCellTag(table_, tag.end)) {
      if (tag.name == u"/TABLE") {
        CloseTable(tag);
        return std::move(output_.Whole());
      }
      if (tag.name == u"TR") {
        OpenRow(tag);
      } else if (tag.name == u"TD") {
        OpenCell(tag);
      } else if (tag.name == u"/TD") {
        CloseCell(tag);
      } else if (tag.name == u"/TR") {
        CloseRow(tag);
      } else {
        AppendThrough(tag);
      }
      copied_ = tag.end;
    }
    output_.Append(table_.substr(copied_));
    return std::move(output_.Whole());
  }

 private:
  TextView StretchBefore(const Tag& tag) const { return table_.substr(copied_, tag.begin - copied_); }
  void AppendThrough(const Tag& tag) { output_.Append(table_.substr(copied_, tag.end - copied_)); }
  void AppendFix(TextView stretch, const Tag& tag, TextView fix) {
    output_.Append(stretch);
    output_.Append(fix);
    copied_ = tag.begin;
  }

  void OpenRow(const Tag& tag) {
    Text fix;
    if (in_cell_) fix = u"</TD>";
    in_cell_ = false;
    if (in_row_) fix += u"</TR>";
    const TextView stretch = StretchBefore(tag);
    if (!fix.empty()) {
      AppendFix(stretch, tag, fix);
    } else if (IsVisible(stretch)) {
      pending_ = stretch;  // waits for the row's first cell; what waited before is lost
      copied_ = tag.begin;
    }
    AppendThrough(tag);
    in_row_ = true;
  }

  void OpenCell(const Tag& tag) {
    Text fix;
    if (!in_row_) fix = u"<TR>";
    in_row_ = true;
    if (in_cell_) fix += u"</TD>";
    const TextView stretch = StretchBefore(tag);
    if (!fix.empty()) {
      AppendFix(stretch, tag, fix);
    } else if (IsVisible(stretch)) {
      pending_ += stretch;
      copied_ = tag.begin;
    }
    AppendThrough(tag);
    output_.Append(pending_);
    pending_.clear();
    in_cell_ = true;
  }

  void CloseCell(const Tag& tag) {
    if (!in_row_) output_.InsertAfterLastTag(u"</TR;<TABLE", u"<TR>");
    in_row_ = true;
    if (!in_cell_) {
      output_.InsertAfterLastTag(u"</TD;<TR", pending_ + u"<TD>");
      pending_.clear();
    }
    AppendThrough(tag);
    in_cell_ = false;
  }

  void CloseRow(const Tag& tag) {
    const TextView stretch = StretchBefore(tag);
    if (in_cell_) {
      AppendFix(stretch, tag, u"</TD>");
      in_cell_ = false;
    } else if (IsVisible(stretch)) {
      output_.InsertAfterLastCellEnd(stretch);
      copied_ = tag.begin;
    }
    AppendThrough(tag);
    in_row_ = false;
  }

  void CloseTable(const Tag& tag) {
    Text fix;
    if (in_cell_) fix = u"</TD>";
    if (in_row_) fix += u"</TR>";
    const TextView stretch = StretchBefore(tag);
    if (!fix.empty()) {
      AppendFix(stretch, tag, fix);
    } else if (IsVisible(stretch)) {
      PutIntoLastCell(stretch);
      copied_ = tag.begin;
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
  std::size_t copied_ = 0;  // of the table so far
  bool in_row_ = false;
  bool in_cell_ = false;
  Text pending_;
};

}  // namespace

Text BalanceTableTags(TextView table) { return Balancing(table).Run(); }

}  // namespace quillary::RepairHTMLTable

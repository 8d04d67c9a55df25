#include "table_repair/copy_first_cell_format.h"

#include "table_repair/table_rows.h"
#include "text/integer16.h"

namespace quillary::RepairHTMLTable {
namespace {

// A blank counts as text here, a line end does not.
class TextOutsideTags {
 public:
  bool Takes(char16_t unit) {
    ++index_;
    if (unit == u'<') {
      in_tag_ = true;
    } else if (unit == u'>') {
      in_tag_ = false;
    } else {
      return unit >= 32 && !in_tag_;
    }
    return false;
  }

 private:
  Integer16 index_;  // overflows in a cell of more than 32,767 characters
  bool in_tag_ = false;
};

Text WithoutTags(TextView cell) {
  Text result;
  TextOutsideTags outside;
  for (const char16_t unit : cell) {
    if (outside.Takes(unit)) result += unit;
  }
  return result;
}

TextView OpeningFormat(TextView cell) {
  TextOutsideTags outside;
  std::size_t length = 0;
  while (length < cell.size() && !outside.Takes(cell[length])) ++length;
  return cell.substr(0, length);
}

}  // namespace

Text CopyFirstCellFormat(TextView table, std::size_t limit) {
  Text format;
  bool stopped = false;
  const auto write = [&](const TableRow& row, Text& output) {
    if (stopped) return;
    const std::vector<TableTag>& cells = row.cells;
    if (format.empty() && cells.size() > 1) {
      format = OpeningFormat(TrimView(row.Between(cells[0], cells[1])));
      stopped = format.empty();
      if (stopped) return;
    }
    Text text(row.text);
    for (std::size_t i = 0; i + 1 < cells.size(); i += 2) {
      const TextView cell = MidView(table, cells[i].StartPos, cells[i + 1].EndPos - cells[i].StartPos + 1);
      const TextView open = MidView(table, cells[i].StartPos, cells[i].EndPos - cells[i].StartPos + 1);
      const TextView close = MidView(table, cells[i + 1].StartPos);
      Text changed(open);
      changed.append(format).append(WithoutTags(row.Between(cells[i], cells[i + 1])));
      changed.append(
          close.substr(0, static_cast<std::size_t>(cells[i + 1].EndPos - cells[i + 1].StartPos + 1)));
      ReplaceIn(text, cell, changed);
      if (output.size() + text.size() > limit) throw LimitReached(LimitReached::Limit::Growth);
    }
    output += text;
  };
  Text result(table);
  Attempt([&] {
    Text changed = RewriteRows(table, limit, write);
    if (!stopped) result = std::move(changed);
  });
  return result;
}

}  // namespace quillary::RepairHTMLTable

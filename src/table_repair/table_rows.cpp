#include "table_repair/table_rows.h"

#include "text/integer16.h"

namespace quillary::RepairHTMLTable {

TextView TableRow::Between(const TableTag& open, const TableTag& close) const {
  return MidView(text, open.EndPos - start + 2, close.StartPos - open.EndPos - 1);
}

Text RewriteRows(TextView table, std::size_t limit, const RowWriter& write) {
  Text output;
  std::int32_t copy_pos = 1;
  std::int32_t rest = 1;
  bool row_written = false;
  TableTag row;
  std::vector<TableTag> cells;
  Integer16 count;
  for (TableTag tag = NextCellTag(table, 1); tag.found() && tag.Name != u"/TABLE";
       tag = NextCellTag(table, tag.EndPos + 1)) {
    if (tag.Name == u"TR") {
      output += MidView(table, copy_pos, tag.StartPos - copy_pos);
      row = tag;
    } else if (tag.Name == u"TABLE") {
      output += MidView(table, copy_pos, tag.EndPos - copy_pos + 1);
      if (!row_written) rest = tag.EndPos + 1;
    } else if (tag.Name == u"/TR") {
      const TextView text = MidView(table, row.StartPos, tag.EndPos - row.StartPos + 1);
      write(TableRow{text, row.StartPos, cells, tag}, output);
      if (output.size() > limit) throw LimitReached(LimitReached::Limit::Growth);
      cells.clear();
      count = 0;
      rest = tag.EndPos + 1;
      row_written = true;
    } else {
      ++count;
      cells.push_back(tag);
    }
    copy_pos = tag.EndPos + 1;
  }
  output += MidView(table, rest);
  return output;
}

}  // namespace quillary::RepairHTMLTable

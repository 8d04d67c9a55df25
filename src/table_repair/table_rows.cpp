#include "table_repair/table_rows.h"

#include "text/integer16.h"

namespace quillary::RepairHTMLTable {

std::size_t TableRow::OffsetAfter(const Tag& tag) const {
  if (tag.end < begin) throw Failure(Failure::Kind::Argument);
  return tag.end - begin;
}

TextView TableRow::Between(const Tag& open, const Tag& close) const {
  return text.substr(OffsetAfter(open), close.begin - open.end);
}

Text RewriteRows(TextView table, std::size_t limit, const RowWriter& write) {
  Text output;
  std::size_t copied = 0;
  std::size_t rest = 0;
  bool row_written = false;
  Tag row;
  std::vector<Tag> cells;
  Integer16 count;
  for (Tag tag = FindCellTag(table, 0); tag.found() && tag.name != u"/TABLE";
       tag = FindCellTag(table, tag.end)) {
    if (tag.name == u"TR") {
      output += table.substr(copied, tag.begin - copied);
      row = tag;
    } else if (tag.name == u"TABLE") {
      output += table.substr(copied, tag.end - copied);
      if (!row_written) rest = tag.end;
    } else if (tag.name == u"/TR") {
      if (!row.found()) throw Failure(Failure::Kind::Argument);
      write(TableRow{table.substr(row.begin, tag.end - row.begin), row.begin, cells}, output);
      if (output.size() > limit) throw LimitReached(LimitReached::Limit::Growth);
      cells.clear();
      count = 0;
      rest = tag.end;
      row_written = true;
    } else {
      ++count;
      cells.push_back(tag);
    }
    copied = tag.end;
  }
  output += table.substr(rest);
  return output;
}

}  // namespace quillary::RepairHTMLTable

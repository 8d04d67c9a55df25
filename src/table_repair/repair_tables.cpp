#include "table_repair/repair_tables.h"

#include "table_repair/balance_table_tags.h"
#include "table_repair/copy_first_cell_format.h"
#include "table_repair/empty_cells.h"
#include "table_repair/span_short_rows.h"
#include "table_repair/table_tags.h"

namespace quillary::RepairHTMLTable {
namespace {

TextView Stretch(TextView html, std::int32_t from, std::int32_t end) {
  return MidView(html, from, end - from);
}

// What a closing tag without an opening one ends.
Text RepairStrayEnd(TextView stretch, Integer16 options, std::size_t limit) {
  const TableTag first = NextCellTag(stretch, 1);
  if (first.Name == u"/TABLE") return Text(Stretch(stretch, 1, first.StartPos));
  return RepairOneTable(Text(u"<TABLE>").append(stretch), options, limit);
}

}  // namespace

Text RepairOneTable(TextView table, Integer16 options, std::size_t limit) {
  Text text = BalanceTableTags(table);
  if ((options & kDropEmptyCells) != 0) text = DropEmptyCells(text, limit);
  if ((options & kFillEmptyCells) != 0) text = FillEmptyCells(text, limit);
  text = SpanShortRows(text);
  if ((options & kCopyFirstCellFormat) != 0) text = CopyFirstCellFormat(text, limit);
  return text;
}

Text RepairTables(TextView html, Integer16 options, std::size_t limit) {
  Text output;
  std::int32_t copy_pos = 1;
  std::int32_t table_start = 1;
  bool in_table = false;
  for (TableTag tag = NextTableTag(html, 1); tag.found(); tag = NextTableTag(html, tag.EndPos + 1)) {
    if (tag.Name == u"TABLE") {
      if (in_table) {
        const Text table = Text(Stretch(html, table_start, tag.StartPos)) + u"</TABLE>";
        output += RepairOneTable(table, options, limit);
      } else {
        output += Stretch(html, copy_pos, tag.StartPos);
      }
      table_start = tag.StartPos;
      in_table = true;
    } else {
      const TextView stretch = Stretch(html, table_start, tag.EndPos + 1);
      if (in_table) {
        output += RepairOneTable(stretch, options, limit);
      } else if (table_start != tag.StartPos) {
        output += RepairStrayEnd(stretch, options, limit);
      }
      table_start = tag.EndPos + 1;
      in_table = false;
    }
    copy_pos = tag.EndPos + 1;
    if (output.size() > limit) throw LimitReached(LimitReached::Limit::Growth);
  }
  if (in_table) {
    output += RepairOneTable(Text(MidView(html, table_start)) + u"</TABLE>", options, limit);
  } else {
    output += MidView(html, copy_pos);
  }
  return output;
}

}  // namespace quillary::RepairHTMLTable

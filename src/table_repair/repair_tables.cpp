#include "table_repair/repair_tables.h"

#include "table_repair/balance_table_tags.h"
#include "table_repair/copy_first_cell_format.h"
#include "table_repair/empty_cells.h"
#include "table_repair/span_short_rows.h"
#include "table_repair/table_tags.h"

namespace quillary::RepairHTMLTable {
namespace {

TextView Stretch(TextView html, std::size_t begin, std::size_t end) {
  return html.substr(begin, end - begin);
}

// What a closing tag without an opening one ends.
Text RepairStrayEnd(TextView stretch, Integer16 options, std::size_t limit) {
  const Tag first = FindCellTag(stretch, 0);
  if (first.name == u"/TABLE") return Text(stretch.substr(0, first.begin));
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
  std::size_t copied = 0;
  std::size_t table_start = 0;
  bool in_table = false;
  for (Tag tag = FindTableTag(html, 0); tag.found(); tag = FindTableTag(html, tag.end)) {
    if (tag.name == u"TABLE") {
      if (in_table) {
        const Text table = Text(Stretch(html, table_start, tag.begin)) + u"</TABLE>";
        output += RepairOneTable(table, options, limit);
      } else {
        output += Stretch(html, copied, tag.begin);
      }
      table_start = tag.begin;
      in_table = true;
    } else {
      const TextView stretch = Stretch(html, table_start, tag.end);
      if (in_table) {
        output += RepairOneTable(stretch, options, limit);
      } else if (table_start != tag.begin) {
        output += RepairStrayEnd(stretch, options, limit);
      }
      table_start = tag.end;
      in_table = false;
    }
    copied = tag.end;
    if (output.size() > limit) throw LimitReached(LimitReached::Limit::Growth);
  }
  if (in_table) {
    output += RepairOneTable(Text(html.substr(table_start)) + u"</TABLE>", options, limit);
  } else {
    output += html.substr(copied);
  }
  return output;
}

}  // namespace quillary::RepairHTMLTable

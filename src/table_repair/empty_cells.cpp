#include "table_repair/empty_cells.h"

#include <vector>

#include "table_repair/table_rows.h"
#include "text/ascii.h"
#include "text/integer16.h"

namespace quillary::RepairHTMLTable {
namespace {

// Whether cells hold text. A tag that is left open in one cell goes on in the
// next that is looked at.
class EmptyCellTest {
 public:
  bool IsEmpty(TextView cell) {
    Integer16 index;
    for (const char16_t unit : cell) {
      ++index;
      if (unit == u'<') {
        in_tag_ = true;
      } else if (unit == u'>') {
        in_tag_ = false;
      } else if (!IsAsciiSpaceOrControl(unit) && !in_tag_) {
        return false;
      }
    }
    return true;
  }

 private:
  bool in_tag_ = false;
};

}  // namespace

Text FillEmptyCells(TextView table, std::size_t limit) {
  EmptyCellTest test;
  std::vector<std::size_t> offsets;  // in the row, from the last to the first
  const auto write = [&](const TableRow& row, Text& output) {
    offsets.clear();
    for (std::size_t i = row.cells.size(); i >= 2; i -= 2) {
      const Tag& open = row.cells[i - 2];
      if (test.IsEmpty(row.Between(open, row.cells[i - 1]))) {
        offsets.push_back(row.OffsetAfter(open));
      }
    }
    std::size_t written = 0;
    for (auto offset = offsets.rbegin(); offset != offsets.rend(); ++offset) {
      output.append(row.text.substr(written, *offset - written)).append(u"&nbsp;");
      written = *offset;
    }
    output.append(row.text.substr(written));
  };
  Text result(table);
  Attempt([&] { result = RewriteRows(table, limit, write); });
  return result;
}

Text DropEmptyCells(TextView table, std::size_t limit) {
  EmptyCellTest test;
  const auto write = [&](const TableRow& row, Text& output) {
    std::size_t kept = row.cells.size();  // cell tags through the last cell with text
    while (kept >= 2 && test.IsEmpty(row.Between(row.cells[kept - 2], row.cells[kept - 1]))) kept -= 2;
    if (kept == row.cells.size()) {
      output += row.text;
    } else if (kept > 0) {
      output += row.text.substr(0, row.OffsetAfter(row.cells[kept - 1]));
      output += row.text.substr(row.OffsetAfter(row.cells.back()));
    }
  };
  Text result(table);
  Attempt([&] { result = RewriteRows(table, limit, write); });
  return result;
}

}  // namespace quillary::RepairHTMLTable

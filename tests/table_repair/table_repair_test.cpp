// Table repair: the balancing scan against a reference implementation that
// searches and copies the whole output at every tag, the failures that leave it, and its cost.
#include <gtest/gtest.h>

#include <ctime>
#include <random>

#include "table_repair/balance_table_tags.h"
#include "table_repair/copy_first_cell_format.h"
#include "table_repair/empty_cells.h"
#include "table_repair/repair_tables.h"
#include "table_repair/span_short_rows.h"
#include "table_repair/table_rows.h"
#include "table_repair/table_tags.h"

namespace quillary::RepairHTMLTable {
namespace {

// ---- the reference implementation ----

TableTag ReferenceNextCellTag(const Text& text, std::int32_t start) {
  std::int32_t open = FindText(start, text, u"<");
  while (open > 0) {
    const std::int32_t i = open + 1;
    TextView name;
    const Text two = ToUpper(Mid(text, i, 2));
    const Text three = ToUpper(Mid(text, i, 3));
    if (two == u"TR") name = u"TR";
    if (two == u"TD") name = u"TD";
    if (three == u"/TR") name = u"/TR";
    if (three == u"/TD") name = u"/TD";
    if (ToUpper(Mid(text, i, 6)) == u"/TABLE") name = u"/TABLE";
    if (ToUpper(Mid(text, i, 5)) == u"TABLE") name = u"TABLE";
    if (!name.empty()) {
      const std::int32_t end = FindText(i, text, u">");
      return end == 0 ? TableTag{} : TableTag{name, open, end};
    }
    open = FindText(i + 2, text, u"<");
  }
  return {};
}

Text ReferenceInsertAfterLastTag(const Text& text, const std::vector<Text>& tag_starts, const Text& insert) {
  std::int32_t last = 0;
  for (const Text& tag_start : tag_starts) {
    last = std::max(last, LastPosition(text, tag_start, Compare::IgnoreCase));
  }
  if (last == 0) return text;
  const std::int32_t close = FindText(last + 3, text, u">");
  return Left(text, close) + insert + Mid(text, close + 1);
}

bool IsVisible(const Text& stretch) {
  if (Trim(stretch).empty()) return false;
  for (std::int32_t i = 1; i <= Length(stretch); ++i) {
    if (Mid(stretch, i, 1)[0] > 32) return true;
  }
  return false;
}

Text ReferenceBalanceTableTags(const Text& table) {
  Text out;
  Text pending;
  std::int32_t copy_pos = 1;
  bool in_row = false;
  bool in_cell = false;
  TableTag tag = ReferenceNextCellTag(table, 1);
  while (tag.StartPos != 0) {
    Text fix;
    Text stretch = Mid(table, copy_pos, tag.StartPos - copy_pos);
    const bool row = tag.Name == u"TR";
    if (row || tag.Name == u"TD") {
      if (row && in_cell) fix = u"</TD>";
      if (row && in_cell) in_cell = false;
      if (row && in_row) fix += u"</TR>";
      if (!row && !in_row) fix = u"<TR>";
      in_row = true;
      if (!row && in_cell) fix += u"</TD>";
      if (!fix.empty()) {
        out = out + stretch + fix;
        copy_pos = tag.StartPos;
      } else if (IsVisible(stretch)) {
        pending = row ? stretch : pending + stretch;
        copy_pos = tag.StartPos;
      }
      out += Mid(table, copy_pos, tag.EndPos - copy_pos + 1);
      if (!row) {
        out += pending;
        pending.clear();
        in_cell = true;
      }
    } else if (tag.Name == u"/TD") {
      if (!in_row) out = ReferenceInsertAfterLastTag(out, {u"</TR", u"<TABLE"}, u"<TR>");
      in_row = true;
      if (!in_cell) {
        out = ReferenceInsertAfterLastTag(out, {u"</TD", u"<TR"}, pending + u"<TD>");
        pending.clear();
      }
      out += Mid(table, copy_pos, tag.EndPos - copy_pos + 1);
      in_cell = false;
    } else if (tag.Name == u"/TR") {
      if (in_cell) {
        out = out + stretch + u"</TD>";
        copy_pos = tag.StartPos;
        in_cell = false;
      } else if (IsVisible(stretch)) {
        out = ReferenceInsertAfterLastTag(out, {u"</TD"}, stretch);
        copy_pos = tag.StartPos;
      }
      out += Mid(table, copy_pos, tag.EndPos - copy_pos + 1);
      in_row = false;
    } else if (tag.Name == u"TABLE") {
      out += Mid(table, copy_pos, tag.EndPos - copy_pos + 1);
    } else {
      if (in_cell) fix = u"</TD>";
      if (in_row) fix += u"</TR>";
      if (!fix.empty()) {
        out = out + stretch + fix;
        copy_pos = tag.StartPos;
      } else if (IsVisible(stretch)) {
        std::int32_t p = Length(out);
        while (p >= 1 && ToUpper(Mid(out, p, 5)) != u"</TD>") --p;
        out = p >= 1 ? Left(out, p - 1) + stretch + Mid(out, p) : out + u"<TR><TD>" + stretch + u"</TD></TR>";
        copy_pos = tag.StartPos;
      }
      return out + Mid(table, copy_pos, tag.EndPos - copy_pos + 1);
    }
    copy_pos = tag.EndPos + 1;
    tag = ReferenceNextCellTag(table, copy_pos);
  }
  return out + Mid(table, copy_pos);
}

class Pages {
 public:
  Text Next() {
    static const std::vector<Text> pieces = {u"<tr>",    u"<TR align=left>",
                                             u"<td>",    u"<TD x=1>",
                                             u"</td>",   u"</TD>",
                                             u"</tr>",   u"</TR >",
                                             u"<table>", u"<TABLE",
                                             u"</table", u"text",
                                             u" ",       u"\r\n",
                                             u"<b>",     u"</b>",
                                             u"<",       u"<a<",
                                             u"/td",     u"d>",
                                             u"tr",      u"<<",
                                             u"t",       u">",
                                             u"<tr",     u"</tr>",
                                             u"<td>",    u"</td>",
                                             u"x",       u"&nbsp;"};
    Text page = random_() % 4 != 0 ? u"<table>" : u"";
    for (std::size_t count = random_() % 30; count > 0; --count) page += pieces[random_() % pieces.size()];
    if (random_() % 3 != 0) page += u"</table>";
    return page;
  }

 private:
  std::mt19937 random_{20240607};
};

std::string Shown(TextView text) { return std::string(text.begin(), text.end()); }

TEST(BalanceTableTags, AgreesWithItsReferenceImplementation) {
  Pages pages;
  int changed = 0;
  for (int i = 0; i < 20000; ++i) {
    const Text page = pages.Next();
    const Text wanted = ReferenceBalanceTableTags(page);
    changed += wanted != page;
    ASSERT_EQ(Shown(wanted), Shown(BalanceTableTags(page))) << Shown(page);
  }
  EXPECT_GT(changed, 10000);
}

// What a reader sees of a cell, or what stands in front of that.
Text Visible(TextView cell, bool only_in_front) {
  Text taken;
  Text in_front;
  bool in_tag = false;
  for (const char16_t unit : cell) {
    const bool bracket = unit == u'<' || unit == u'>';
    if (bracket) in_tag = unit == u'<';
    if (!bracket && !in_tag && unit >= 32) taken += unit;
    if (taken.empty()) in_front += unit;
  }
  return only_in_front ? in_front : taken;
}

// Cell by cell, each replaced in its whole row.
Text ReferenceCopyFirstCellFormat(const Text& table) {
  Text format;
  bool stopped = false;
  Text result = table;
  Attempt([&] {
    const Text changed = RewriteRows(table, limits::kWorkingUnits, [&](const TableRow& row, Text& output) {
      if (format.empty() && row.cells.size() > 1) {
        format = Visible(Trim(row.Between(row.cells[0], row.cells[1])), true);
        stopped = stopped || format.empty();
      }
      Text text(row.text);
      for (std::size_t i = 0; i + 1 < row.cells.size(); i += 2) {
        const Tag& open = row.cells[i];
        const Tag& close = row.cells[i + 1];
        const Text cell = table.substr(open.begin, close.end - open.begin);
        const Text with = table.substr(open.begin, open.end - open.begin) + format +
                          Visible(row.Between(open, close), false) +
                          table.substr(close.begin, close.end - close.begin);
        ReplaceIn(text, cell, with);
      }
      output += text;
    });
    if (!stopped) result = changed;
  });
  return result;
}

TEST(CopyFirstCellFormat, LeavesTablesOfOverlongCells) {
  for (const std::size_t units : {std::size_t{32767}, std::size_t{32768}}) {
    const Text cell = u"<td>" + Text(units, u'x') + u"</td></tr></table>";
    const Text table = u"<table><tr><td><b>a</b></td>" + cell;
    EXPECT_EQ(CopyFirstCellFormat(table) == table, units > 32767) << units;
  }
}

TEST(CopyFirstCellFormat, AgreesWithItsReferenceImplementation) {
  constexpr TextView kPieces[] = {
      u"<td>", u"<td><b>a</td>", u"<td>a</td>", u"<td><b></td>", u"</td>", u"<tr>", u"</tr>", u"<b>", u"a",
      u"<",    u"</TD>",         u"<TD x>",     u"</tr><tr>",    u"d>",    u"\r"};
  std::mt19937 random(7);
  for (int i = 0; i < 20000; ++i) {
    Text table = random() % 2 == 0 ? u"<table><tr><td><b>a</td>" : u"<table><tr>";
    for (auto count = random() % 9; count > 0; --count) table += kPieces[random() % std::size(kPieces)];
    table += u"</tr></table>";
    ASSERT_EQ(ReferenceCopyFirstCellFormat(table), CopyFirstCellFormat(table))
        << std::string(table.begin(), table.end());
  }
}

// A row that misses its end is raised again with its position in the table, and
// leaves the page to the caller as it was.
TEST(SpanShortRows, TellsWhereARowHasNoEnd) {
  const Text table = u"<table><tr><td>1</td></tr><tr><td>2</td></table>";
  try {
    SpanShortRows(table);
    FAIL();
  } catch (const Failure& failure) {
    EXPECT_EQ(Failure::Kind::Raised, failure.kind());
    EXPECT_EQ(0x800400C9, failure.code());
    EXPECT_EQ("HTMLParser::repairTable", failure.source());
    EXPECT_EQ("End row not found offset=31,row=2", failure.description());
  }
}

TEST(SpanShortRows, CountsCellsInSixteenBits) {
  Text row = u"<table><tr>";
  for (int i = 0; i < 32768; ++i) row += u"<td>x</td>";
  try {
    SpanShortRows(row + u"</tr></table>");
    FAIL();
  } catch (const Failure& failure) {
    EXPECT_EQ(Failure::Kind::Overflow, failure.kind());
    EXPECT_TRUE(failure.description().ends_with(",row=1")) << failure.description();
  }
}

TEST(EmptyCells, LookAtNoMoreThanSixteenBitsOfACell) {
  const auto table = [](std::size_t spaces, TextView end) {
    return Text(u"<tr><td>") + Text(spaces, u' ') + Text(end) + u"</td></tr>";
  };
  EXPECT_EQ(u"<tr><td>&nbsp;", FillEmptyCells(table(32767, u"")).substr(0, 14));
  EXPECT_EQ(table(32768, u""), FillEmptyCells(table(32768, u"")));
  EXPECT_EQ(u"", DropEmptyCells(table(32767, u"")));
  EXPECT_EQ(table(32767, u"xyz"), DropEmptyCells(table(32767, u"xyz")));
  // Text ends the look, however long the cell goes on.
  EXPECT_EQ(u"<tr><td>x" + Text(40000, u' ') + u"</td><td>&nbsp;</td></tr>",
            FillEmptyCells(u"<tr><td>x" + Text(40000, u' ') + u"</td><td></td></tr>"));
  const Text formatted = u"<tr><td><b>" + Text(32765, u'x') + u"</td></tr>";
  EXPECT_EQ(formatted, CopyFirstCellFormat(formatted));
}

TEST(EmptyCells, StopAtTheGrowthLimit) {
  Text table = u"<tr>";
  for (int i = 0; i < 3000; ++i) table += u"</tr>";  // each one repeats the row
  EXPECT_THROW(FillEmptyCells(table, 1000000), LimitReached);
}

// Each of these has made one of the searches run to one end of the text at every tag.
TEST(RepairTables, TakesLinearTime) {
  const auto repeat = [](TextView head, TextView piece, std::size_t units) {
    Text page(head);
    while (page.size() < units) page += piece;
    return page;
  };
  const Text cell_row = u"<table><tr><td>a</td></tr>";
  const Text pages[] = {
      repeat(u"", u"<", 1000000),
      repeat(u"", u"<tr", 1000000),
      repeat(u"<table>", u"</td>", 1000000),
      repeat(u"<table>", u"<td>", 1000000),
      repeat(u"<table>", u"<tr>text</tr>", 1000000),
      repeat(cell_row, u"<tr>text</tr>", 1000000),
      repeat(cell_row, u"<tr><a</td></tr>", 1000000),
      repeat(cell_row, u"<tr>/td><a<</tr>", 1000000),
      repeat(u"", u"<table>", 1000000),
      repeat(u"", u"text</table>", 1000000),
      repeat(u"<table>", u"<tr><td>one<td><b>two</b><td><td>", 1000000),
  };
  int number = 0;
  for (const Text& page : pages) {
    const std::clock_t start = std::clock();
    try {
      RepairTables(page, 2);
    } catch (const Failure&) {
    }
    EXPECT_LT(std::clock() - start, 2 * CLOCKS_PER_SEC) << "page " << number;
    ++number;
  }
}

}  // namespace
}  // namespace quillary::RepairHTMLTable

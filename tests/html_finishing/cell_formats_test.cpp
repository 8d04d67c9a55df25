// Formats carried from cell to cell through tables of many cells.
#include "html_finishing/cell_formats.h"

#include <gtest/gtest.h>

namespace quillary::modTable {
namespace {

TEST(BalanceCellFormatting, KeepsFragmentsBeyondTheFirstRoom) {
  Apartment apartment;
  Text table = u"<table><tr><td><b>0</td>";
  Text wanted = u"<table><tr><td><b>0</b></td>";
  for (int cell = 1; cell <= 600; ++cell) {
    table += u"<td>" + Decimal(cell) + u"</td>";
    wanted += u"<td><b>" + Decimal(cell) + u"</b></td>";
  }
  EXPECT_EQ(wanted + u"</tr></table>", BalanceCellFormatting(apartment, table + u"</tr></table>"));
  const List<CellFragment>& fragments = apartment.rtf_to_html.CellFragments;
  EXPECT_EQ(603, fragments.last_set());
  EXPECT_EQ(768, fragments.upper());
  EXPECT_EQ(u"<table><tr>", fragments[1].Text);
  EXPECT_FALSE(apartment.rtf_to_html.BoldOn);
}

// Nothing of one table reaches the next.
TEST(BalanceCellFormatting, BeginsAnew) {
  Apartment apartment;
  BalanceCellFormatting(apartment, u"<td><u><font x>a</td>");
  EXPECT_EQ(u"<td>b</td>", BalanceCellFormatting(apartment, u"<td>b</td>"));
  EXPECT_EQ(1, apartment.rtf_to_html.CellFragments.last_set());
}

// A large font that is carried into every cell makes the table grow by their product.
TEST(BalanceCellFormatting, StopsAtTheWorkingLimit) {
  Apartment apartment;
  apartment.working_limit = 1000000;
  Text table = u"<td><font " + Text(10000, u'x') + u">a</td>";
  for (int cell = 0; cell < 200; ++cell) table += u"<td>b</td>";
  EXPECT_THROW(BalanceCellFormatting(apartment, table), LimitReached);
}

}  // namespace
}  // namespace quillary::modTable

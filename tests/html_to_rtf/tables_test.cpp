// Tables in HTML to RTF: the positions of cells, the fast scans against the slow ones, and
// tables that are nested or long beyond measure.
#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <regex>

#include "html_to_rtf/driver/convert_html_document.h"
#include "html_to_rtf/tables/prefilters.h"
#include "html_to_rtf/tables/table_markup.h"
#include "text/encodings.h"

namespace quillary::HTMLRTFConverter {
namespace {

Text Convert(Text page) {
  Apartment apartment;
  return ConvertHtmlDocument(apartment, page, u"", u"", 1);
}

// The positions of all cells of a page, row by row.
std::string CellPositions(const std::string& page) {
  const std::string rtf = ToUtf8(Convert(FromUtf8(page)));
  std::string positions;
  const std::regex word("\\\\cellx([0-9]+)|\\\\trowd");
  for (std::sregex_iterator found(rtf.begin(), rtf.end(), word), end; found != end; ++found) {
    positions += found->str(1).empty() ? (positions.empty() ? "" : "| ") : found->str(1) + " ";
  }
  return positions;
}

// A pixel is 15 twips; a table has 600 pixels.
TEST(Tables, PutCellsWhereABrowserWould) {
  const struct {
    const char* page;
    const char* positions;
  } cases[] = {
      // No widths: 600 / 3 = 200 pixels each.
      {"<table><tr><td>a<td>b<td>c</table>", "3000 6000 9000 "},
      // Half of 600 is 300, so 150 each.
      {"<table width=\"50%\"><tr><td>a<td>b</table>", "2250 4500 "},
      // 100 are asked for; (600 - 100) / 2 = 250 each for the others.
      {"<table><tr><td width=100>a<td>b<td>c</table>", "1500 5250 9000 "},
      // 120 + 80 + 400 are 600.
      {"<table><tr><td width=120>a<td width=80>b<td width=400>c</table>", "1800 3000 9000 "},
      // 400 + 500 are 900, more than the page: 400 * 15 * 600 / 900 = 4000.
      {"<table><tr><td width=400>a<td width=500>b</table>", "4000 9000 "},
      // A table of 1200 pixels, 600 each: 600 * 15 / 2 = 4500.
      {"<table width=1200><tr><td>a<td>b</table>", "4500 9000 "},
      // 25 % of 600 are 150, and 75 % the rest.
      {"<table><tr><td width=25%>a<td width=75%>b</table>", "2250 9000 "},
      // 33.3 % are 199.8, and (600 - 199.8) / 2 is 200 when rounded; 199.8 * 15 = 2997.
      {"<table><tr><td width=33.3%>a<td>b<td>c</table>", "2997 5997 8997 "},
      // The heading spans both columns, of which the second row makes one 200 wide.
      {"<table><tr><td colspan=2>h<tr><td width=200>a<td>b</table>", "9000 | 3000 9000 "},
      // 300 is the even share of two columns and counts as none: 600 - 100 = 500 are left.
      {"<table><tr><td width=300>a<td width=100>b</table>", "7500 9000 "},
      // A width that is no number is 0: no column has a width, each counts -1, without its sign.
      {"<table width=wide><tr><td>a<td>b</table>", "15 30 "},
      // The cell below the span is there, empty.
      {"<table><tr><td rowspan=2>a<td>b<tr><td>c</table>", "4500 9000 | 4500 9000 "},
      // The table within needs 300 of its cell; (600 - 300) / 2 = 150 are left for each of the others.
      // Its own row comes after its cell: 300 * 15 = 4500.
      {"<table><tr><td>a<td><table width=300><tr><td>n</table><td>c</table>", "2250 6750 9000 | 4500 "},
  };
  for (const auto& row : cases) EXPECT_EQ(CellPositions(row.page), row.positions) << row.page;
}

// A table of some rows and cells, with spans, headers and tables in its cells.
Text RandomTable(std::mt19937& random, int depth) {
  const TextView attributes[] = {
      u"", u"", u" rowspan=2", u" ROWSPAN=\"3\"", u" colspan=2", u" rowspan=2 colspan=2", u" rowspan=\"\""};
  Text table(u"<table>");
  for (std::size_t rows = 1 + random() % 4; rows > 0; --rows) {
    table += u"<tr>";
    for (std::size_t cells = random() % 4; cells > 0; --cells) {
      const bool header = random() % 8 == 0;
      table += Joined({header ? u"<th" : u"<td", attributes[random() % std::size(attributes)], u">x"});
      if (depth > 0 && random() % 4 == 0) table += RandomTable(random, depth - 1);
      table += header ? u"</th>" : random() % 4 == 0 ? u"" : u"</td>";
    }
    table += random() % 4 == 0 ? u"\r\n" : u"</tr>";
  }
  return table + u"</table>";
}

TEST(ExpandRowspans, AgreesWithTheStageStepByStep) {
  std::mt19937 random(11);
  for (int i = 0; i < 3000; ++i) {
    const Text page = RandomTable(random, 2) + RandomTable(random, 1);
    Text fast = page;
    Text slow = page;
    try {
      ASSERT_EQ(Attempt([&] { ExpandRowspans(fast); }), Attempt([&] { ExpandRowspansOneByOne(slow); }))
          << ToUtf8(page);
    } catch (const LimitReached&) {
      continue;  // step by step there is no end
    }
    ASSERT_EQ(ToUtf8(fast), ToUtf8(slow)) << ToUtf8(page);
  }
}

Text Repeated(TextView piece, std::size_t times) {
  Text text;
  for (; times > 0; --times) text += piece;
  return text;
}

TEST(Tables, CostWhatThePageIsLong) {
  const Text row = u"<tr>" + Repeated(u"<td>x</td>", 100) + u"</tr>";
  const Text pages[] = {
      u"<table>" + Repeated(row, 1000) + u"</table>",
      Repeated(u"<table><tr><td>", 200) + Repeated(u"</td></tr></table>", 200),
      u"<table>" + Repeated(u"<tr><td rowspan=2>a<td>b</tr>", 10000) + u"</table>",
      u"<table><tr><td rowspan=32767>a</td></tr>" + Repeated(u"<tr><td>b</td></tr>", 10000) + u"</table>",
      Repeated(u"<table><td>a</table>", 10000),
      Repeated(u"<tr><td>a", 20000),
      Repeated(u"</td></tr></table>", 20000),
      u"<table>" + Repeated(u"<tr><td width=x colspan=33 bgcolor=red>a", 5000),
  };
  for (const Text& page : pages) {
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(Convert(page).empty());
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(15))
        << ToUtf8(page.substr(0, 60));
  }
}

TEST(Tables, NestedTooDeepEndTheConversion) {
  try {
    Convert(Repeated(u"<table><tr><td>", 1000) + Repeated(u"</td></tr></table>", 1000));
    FAIL();
  } catch (const LimitReached& reached) {
    EXPECT_EQ(reached.limit(), LimitReached::Limit::Nesting);
  }
}

}  // namespace
}  // namespace quillary::HTMLRTFConverter

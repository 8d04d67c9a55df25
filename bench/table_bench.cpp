// Tables of a page of a million units.
#include <benchmark/benchmark.h>

#include "html_finishing/cell_formats.h"
#include "table_repair/repair_tables.h"

namespace {

using quillary::Text;

// 5,000 rows; some lack an end, a cell or a tag.
Text TablePage() {
  Text page = u"<html><body><table border=1>";
  for (int row = 0; row < 5000; ++row) {
    page += u"<tr><td width=120><font FACE=\"Arial\" SIZE=\"2\" >";
    page += Text(60, u'w');
    page += u"</font></td><td><b>bold</b> and plain text of a cell</td>";
    if (row % 3 == 0) page += u"stray<td> </td>";
    if (row % 5 == 0) page += u"<td>open";
    if (row % 7 != 0) page += u"</tr>";
    page += u"\r\n";
  }
  return page + u"</table></body></html>";
}

void RepairTables(benchmark::State& state) {
  const Text page = TablePage();
  for (auto _ : state) benchmark::DoNotOptimize(quillary::RepairHTMLTable::RepairTables(page, 2));
  state.counters["units"] = static_cast<double>(page.size());
}
BENCHMARK(RepairTables)->Unit(benchmark::kMillisecond);

void BalanceCellFormatting(benchmark::State& state) {
  const Text page = TablePage();
  quillary::Apartment apartment;
  for (auto _ : state) {
    benchmark::DoNotOptimize(quillary::modTable::BalanceCellFormatting(apartment, page));
  }
}
BENCHMARK(BalanceCellFormatting)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();

// Tables, font tags and links of a page of a million units.
#include <benchmark/benchmark.h>

#include "html_finishing/cell_formats.h"
#include "html_finishing/finish_entities_and_lists.rules.h"
#include "rules/run.h"
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

// 40 fonts, 40 colours and 181 links, and tags of them all in the page.
Text FontPage(quillary::RtfToHtmlState& state) {
  for (quillary::TextList* list : {&state.FontFaces, &state.ColourTable, &state.FoundLinks}) list->Size(200);
  state.FontCount = 40;
  state.ColourCount = 40;
  for (std::int32_t i = 0; i <= 200; ++i) {
    state.FontFaces.Set(i, u"Face " + quillary::Decimal(i));
    state.ColourTable.Set(i, u"#0000" + quillary::Decimal(10 + i));
    state.FoundLinks.Set(i, u"www.example" + quillary::Decimal(i) + u".org");
  }
  Text page;
  for (std::int32_t i = 0; page.size() < 1000000; ++i) {
    page += u"<u><b><font FACE=\"Face " + quillary::Decimal(i % 40) + u"\" SIZE=\"";
    page += quillary::Decimal(1 + i % 7) + u"\" ><font COLOR=\"#0000" + quillary::Decimal(10 + i % 40);
    page += u"\"><a href=\"http://www.example" + quillary::Decimal(i % 190);
    page += u".org\">some words of a link</a></b></u> and more words";
  }
  return page;
}

void FinishStage(benchmark::State& bench, int stage) {
  quillary::Apartment apartment;
  const Text page = FontPage(apartment.rtf_to_html);
  for (auto _ : bench) {
    quillary::rules::Rewriting text = quillary::StartRewriting(apartment, page);
    quillary::rules::RunStage(quillary::chains::FinishEntitiesAndLists, stage, text, &apartment.rtf_to_html);
    benchmark::DoNotOptimize(text.text().data());
  }
}
BENCHMARK_CAPTURE(FinishStage, fonts_outward, quillary::chains::FinishEntitiesAndLists_stages::fonts_outward)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FinishStage, link_colours, quillary::chains::FinishEntitiesAndLists_stages::link_colours)
    ->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();

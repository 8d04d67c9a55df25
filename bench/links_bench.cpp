// Link recognition on pages of a million units, each with as many links,
// addresses or labels as are recognised at most.
#include <benchmark/benchmark.h>

#include "links/email_addresses.h"
#include "links/label_links.h"
#include "links/link_lists.h"
#include "links/scan_links.h"

namespace {

using quillary::Decimal;
using quillary::Text;
using quillary::TextView;

constexpr int kLinksOnPage = 1995;

// `count` pieces with their number in place of "%", spread over the page.
Text Page(TextView piece, int count) {
  Text filling;
  while (filling.size() * static_cast<std::size_t>(count) < 900000)
    filling += u"<p>words of a letter, 12.5 or so</p>\r\n";
  Text page;
  for (int i = 0; i < count; ++i) page += filling + quillary::ReplaceAll(piece, u"%", Decimal(i));
  return page;
}

void Scan(benchmark::State& bench, void (*scan)(quillary::RtfToHtmlState&, TextView), TextView piece,
          int count) {
  quillary::RtfToHtmlState state;
  quillary::links::LoadLinkPrefixes(state);
  quillary::links::LoadLinkDelimiters(state);
  const Text page = Page(piece, count);
  for (auto _ : bench) scan(state, page);
  bench.counters["units"] = static_cast<double>(page.size());
}

void Repair(benchmark::State& bench, Text (*repair)(TextView), TextView piece) {
  const Text page = Page(piece, 250);
  for (auto _ : bench) benchmark::DoNotOptimize(repair(page));
  bench.counters["units"] = static_cast<double>(page.size());
}

BENCHMARK_CAPTURE(Scan, links, quillary::links::ScanLinks, u"see http://www.example.org/a%.html and ",
                  kLinksOnPage);
BENCHMARK_CAPTURE(Scan, labels, quillary::links::ScanLinks,
                  u"see www.example.org &lt;http://e.org/%&gt; and ", kLinksOnPage);
BENCHMARK_CAPTURE(Scan, addresses, quillary::links::ScanEmailAddresses, u"write to name%@example.org. ",
                  2000);
BENCHMARK_CAPTURE(Repair, label_links, quillary::links::RepairLabelLinks,
                  u"<u>Label % &lt;e.org/%&gt;</u><font COLOR=\"#000000\">");
BENCHMARK_CAPTURE(Repair, label_anchors, quillary::links::RepairLabelAnchors,
                  u"<u>Label % &lt;<a href=\"e.org/%\">e.org</a>&gt;</u>");

}  // namespace

BENCHMARK_MAIN();

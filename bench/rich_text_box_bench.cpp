// The round trip through the rich text control on documents of a megabyte.
#include <benchmark/benchmark.h>

#include "platform/rich_text/rich_text_box.h"

namespace {

using quillary::Text;
using quillary::TextView;

constexpr std::size_t kUnits = 1'000'000;

/// `piece` over and over in a document.
Text DocumentOf(TextView piece) {
  Text rtf =
      u"{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}{\\f1\\froman\\fcharset0 "
      u"Times New Roman;}{\\f2\\fnil\\fcharset204 Arial Cyr;}}{\\colortbl "
      u";\\red255\\green0\\blue0;}\\pard\\f0\\fs24 ";
  while (rtf.size() < kUnits) rtf += piece;
  return rtf + u"}";
}

void RoundTrip(benchmark::State& state, TextView piece) {
  const Text rtf = DocumentOf(piece);
  for (auto _ : state) {
    const auto box = quillary::platform::MakeRichTextBox();
    box->SetTextRTF(rtf);
    benchmark::DoNotOptimize(box->TextRTF());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                          static_cast<std::int64_t>(rtf.size()));
}

constexpr TextView kProse =
    u"The quick brown fox jumps over the lazy dog, \\b and then it runs\\b0  far into the forest where "
    u"nobody "
    u"has been before; caf\\'e9 and all. {\\cf1\\i It sleeps} under the old oak until the morning "
    u"comes.\\par\r\n";
constexpr TextView kEscapes =
    u"\\f2 \\'cf\\'f0\\'e8\\'e2\\'e5\\'f2 \\'ec\\'e8\\'f0\\f0 , \\u960?\\u961?\\par\r\n";
constexpr TextView kRows =
    u"\\trowd\\trgaph108\\cellx2000\\cellx4000\\cellx6000\\pard\\intbl one cell\\cell \\b two\\b0\\cell "
    u"three\\cell\\row\r\n";
constexpr TextView kMail =
    u"{\\*\\htmltag64 <p class=MsoNormal>}\\htmlrtf {\\htmlrtf0 Dear all,{\\*\\htmltag84 &nbsp;}\\htmlrtf "
    u"\\'a0\\htmlrtf0 the minutes are attached.{\\*\\htmltag72 </p>}\\htmlrtf\\par}\\htmlrtf0\r\n";

BENCHMARK_CAPTURE(RoundTrip, prose, kProse)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(RoundTrip, escapes, kEscapes)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(RoundTrip, rows, kRows)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(RoundTrip, mail, kMail)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();

// The engine: a chain of 2,000 rules of which a handful match, a rule that
// cannot match, short texts, and the rewrite chains on a document of the rich
// edit control.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "../tests/rules/chain_twin.h"
#include "rtf_to_html/rewriting/rewrite_bullets.rules.h"
#include "rtf_to_html/rewriting/rewrite_headings.rules.h"
#include "rules/firing_log.h"

namespace quillary {
namespace {

Text Paragraphs(std::size_t units) {
  const Text paragraph =
      u"\\par \\pard\\fi-200\\li200{\\pntext\\f1\\'B7\\tab}A paragraph of \\b bold\\b0  and \\i italic\\i0  "
      u"words in \\f1\\fs20 another face\\f0\\fs24 , and some more of them to the end of the line.\r\n";
  Text text;
  while (text.size() < units) text += paragraph;
  text.resize(units);
  return text;
}

// 2,000 rules in the manner of the real ones; five of them match.
const rules::Chain& TwoThousandRules() {
  static const MadeChain made(
      "chain Large ignore-case\nstage all \"All.\"\n"
      "  ⟨\\b0␣␣⟩ -> ⟨\\b0␣⟩\n  ⟨\\fs20 another⟩ -> ⟨\\fs22 another⟩\n"
      "  ⟨\\keepn\\s<n>\\li<m>\\tx<n>⟩ -> ⟨\\li<m>⟩ for <n> 1 to 40, <m> 700 to 724\n"
      "  ⟨\\f1\\fs2<n>␣⟩ -> ⟨\\fs2<n>\\f1␣⟩ for <n> 0 to 4\n"
      "  ⟨\\par \\pard{\\pntext\\f<n> <m>)\\tab}⟩ -> ⟨\\par␣⟩ for <n> 1 to 30, <m> 1 to 33\n"
      "  ⟨end of the line⟩ -> ⟨end⟩\n  ⟨italic\\i0⟩ -> ⟨\\i0⟩\n  ⟨A paragraph⟩ -> ⟨One paragraph⟩\n");
  return made.chain();
}

void TwoThousandRulesOf(benchmark::State& state) {
  const Text text = Paragraphs(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    rules::Rewriting rewriting(text);
    rules::Run(TwoThousandRules(), rewriting);
    benchmark::DoNotOptimize(rewriting.text().data());
  }
  state.counters["rules"] = static_cast<double>(TwoThousandRules().rules.size());
  state.counters["ns_per_unit"] =
      benchmark::Counter(static_cast<double>(text.size()) * 1e-9,
                         benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(TwoThousandRulesOf)->RangeMultiplier(10)->Range(10'000, 10'000'000);

// The text is indexed and changes no more: what is left is the skipping.
void RulesThatCannotMatch(benchmark::State& state) {
  rules::Rewriting rewriting(Paragraphs(static_cast<std::size_t>(state.range(0))));
  rules::Run(TwoThousandRules(), rewriting);
  const Text settled = rewriting.text();
  rules::Rewriting again(settled);
  rules::Run(TwoThousandRules(), again);
  std::size_t asked = 0;
  for (auto _ : state) {
    for (const rules::Rule& rule : TwoThousandRules().rules) {
      asked += again.Where(rule.find, TwoThousandRules().GramsOf(rule)) == 0 ? std::size_t{1} : 0;
    }
  }
  state.counters["ns_per_rule"] = benchmark::Counter(
      static_cast<double>(asked) * 1e-9, benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(RulesThatCannotMatch)->RangeMultiplier(10)->Range(10'000, 10'000'000);

// A segment: a fresh text for each run.
void ShortTexts(benchmark::State& state) {
  const Text text = Paragraphs(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    rules::Rewriting rewriting(text);
    rules::Run(chains::RewriteChainHeadings, rewriting);
    benchmark::DoNotOptimize(rewriting.text().data());
  }
}
BENCHMARK(ShortTexts)->Arg(50)->Arg(100)->Arg(200);

// Real documents of the rich edit control, one behind the other, where there
// are any; the paragraphs from above elsewhere.
Text Documents(std::size_t units) {
  Text all;
  const char* const corpus = std::getenv("QUILLARY_CORPUS");
  if (corpus != nullptr) {
    for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::path(corpus) / "rtf")) {
      if (!entry.path().filename().string().starts_with("richedit2-oldpar-")) continue;
      std::ifstream in(entry.path(), std::ios::binary);
      for (std::istreambuf_iterator<char> at(in), end; at != end; ++at) {
        all += static_cast<char16_t>(static_cast<unsigned char>(*at));
      }
    }
  }
  if (all.empty()) all = Paragraphs(10'000);
  Text text;
  while (text.size() < units) text += all;
  text.resize(units);
  return text;
}

void RewriteChains(benchmark::State& state) {
  const Text text = Documents(static_cast<std::size_t>(state.range(0)));
  rules::FiringLog log;
  const auto run = [&](rules::FiringLog* firings) {
    rules::Rewriting rewriting(text);
    rewriting.set_log(firings);
    rules::Run(chains::RewriteChainBullets, rewriting);
    rules::Run(chains::RewriteChainHeadings, rewriting);
    benchmark::DoNotOptimize(rewriting.text().data());
  };
  run(&log);
  for (auto _ : state) run(nullptr);
  state.counters["fired"] = static_cast<double>(log.firings().size());
}
BENCHMARK(RewriteChains)->RangeMultiplier(10)->Range(10'000, 10'000'000)->Unit(benchmark::kMillisecond);

// The same rule by rule.
void RewriteChainsOfTheTwin(benchmark::State& state) {
  const Text text = Documents(static_cast<std::size_t>(state.range(0)));
  for (auto _ : state) {
    Text changed = text;
    for (const rules::Chain* chain : {&chains::RewriteChainBullets, &chains::RewriteChainHeadings}) {
      for (const rules::Rule& rule : chain->rules)
        ReplaceIn(changed, rule.find, rule.with, rule.mode, rule.limit);
    }
    benchmark::DoNotOptimize(changed.data());
  }
}
BENCHMARK(RewriteChainsOfTheTwin)->Arg(100'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quillary

BENCHMARK_MAIN();

// Whole documents of one kind each, from RTF to page, and pages to RTF.
#include <benchmark/benchmark.h>

#include <string>

#include "component/conversions.h"
#include "text/text.h"

namespace quillary {
namespace {

constexpr TextView kSentence =
    u"The quick brown fox jumps over the lazy dog and runs along the harbour wall until evening. ";
constexpr TextView kHead =
    u"{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl{\\f0\\fnil\\fcharset0 Arial;}"
    u"{\\f1\\fnil\\fcharset2 Symbol;}{\\f2\\fnil\\fcharset0 Times New Roman;}}\r\n"
    u"{\\colortbl ;\\red0\\green0\\blue255;\\red255\\green0\\blue0;\\red0\\green128\\blue0;}\r\n"
    u"\\viewkind4\\uc1\\pard\\f0\\fs20 ";

Text PlainPiece(int) { return Text(kSentence) + Text(kSentence) + u"\r\n\\par "; }

Text BulletPiece(int) {
  return u"\r\n\\par \\pard{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'B7}}"
         u"\\fi-200\\li200 first item\r\n\\par {\\pntext\\f1\\'B7\\tab}second \\b bold\\b0  item"
         u"\r\n\\par {\\pntext\\f1\\'B7\\tab}third item of the list\r\n\\par \\pard After the list. " +
         Text(kSentence);
}

Text TablePiece(int) {
  Text piece =
      u"\r\n\\par \\trowd\\trgaph30\\trleft-30\\cellx1800\\cellx3600\\cellx5400\\pard\\intbl\\b Day\\cell "
      u"High\\cell Low\\cell\\row\r\n\\b0";
  for (int row = 0; row < 10; ++row) {
    piece += u"\\trowd\\trgaph30\\trleft-30\\cellx1800\\cellx3600\\cellx5400\\intbl Monday " + Decimal(row) +
             u"\\cell 05:12\\cell 11:31\\cell\\row\r\n";
  }
  return piece + u"\\pard\r\n\\par After the table. ";
}

Text LinkPiece(int number) {
  return Text(kSentence) + u"See http://www.example.org/page" + Decimal(number) + u" and write to user" +
         Decimal(number) + u"@example.org for more.\r\n\\par ";
}

Text FontPiece(int number) {
  return u"\\f" + Decimal(number % 40) + u"\\fs" + Decimal(16 + number % 20) + u"\\cf" +
         Decimal(1 + number % 3) + u" word " + Decimal(number) +
         u" in a font\\f0\\fs20\\cf0  and \\b bold\\b0  text.\r\n\\par ";
}

Text FontHead() {
  Text fonts = u"{\\fonttbl";
  for (int font = 0; font < 40; ++font) {
    fonts += u"{\\f" + Decimal(font) + u"\\fnil\\fcharset0 Face " + static_cast<char16_t>(u'A' + font / 26) +
             static_cast<char16_t>(u'a' + font % 26) + u";}";
  }
  const TextView plain = kHead;
  const std::size_t from = plain.find(u"{\\fonttbl");
  const std::size_t to = plain.find(u"}}", from) + 1;
  return Text(plain.substr(0, from)) + fonts + Text(plain.substr(to));
}

void Convert(benchmark::State& state, TextView start, Text (*piece)(int)) {
  const auto units = static_cast<std::size_t>(state.range(0));
  Text document(start);
  for (int number = 0; document.size() < units; ++number) document += piece(number);
  document += u"\r\n\\par }\r\n";
  for (auto _ : state) {
    Apartment apartment;
    component::Properties properties;
    component::Class_InitProperties(properties);
    properties.RTF_Text = document;
    benchmark::DoNotOptimize(component::ConvertRTF(apartment, properties));
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(document.size()));
}

Text PagePiece(int number) {
  return u"<h2>Heading " + Decimal(number) +
         u"</h2>\r\n<p align=\"justify\"><font face=\"Arial\" size=\"2\">" + Text(kSentence) +
         u"<b>bold</b>, <i>italic</i> and <a href=\"http://www.example.org/\">a link</a>&nbsp;&#8364; " +
         Decimal(number) + u"</font></p>\r\n<ul><li>first item</li><li>second item</li></ul>\r\n";
}

void ConvertPage(benchmark::State& state) {
  const auto units = static_cast<std::size_t>(state.range(0));
  Text page(u"<html><body>");
  for (int number = 0; page.size() < units; ++number) page += PagePiece(number);
  for (auto _ : state) {
    Apartment apartment;
    component::Properties properties;
    component::Class_InitProperties(properties);
    properties.HTML_Text = page;
    benchmark::DoNotOptimize(component::ConvertHTML2RTF(apartment, properties));
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(page.size()));
}

constexpr std::int64_t kMegabyte = 1000000;

void PlainText(benchmark::State& state) { Convert(state, kHead, PlainPiece); }
void Bullets(benchmark::State& state) { Convert(state, kHead, BulletPiece); }
void Tables(benchmark::State& state) { Convert(state, kHead, TablePiece); }
void Links(benchmark::State& state) { Convert(state, kHead, LinkPiece); }
void ManyFonts(benchmark::State& state) { Convert(state, FontHead(), FontPiece); }

BENCHMARK(ConvertPage)->Arg(kMegabyte)->Arg(5 * kMegabyte)->Unit(benchmark::kMillisecond);
BENCHMARK(PlainText)->Arg(kMegabyte)->Arg(2 * kMegabyte)->Unit(benchmark::kMillisecond);
BENCHMARK(Bullets)->Arg(kMegabyte)->Arg(2 * kMegabyte)->Unit(benchmark::kMillisecond);
BENCHMARK(Tables)->Arg(kMegabyte)->Arg(2 * kMegabyte)->Unit(benchmark::kMillisecond);
BENCHMARK(Links)->Arg(kMegabyte)->Arg(2 * kMegabyte)->Unit(benchmark::kMillisecond);
BENCHMARK(ManyFonts)->Arg(kMegabyte)->Arg(2 * kMegabyte)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace quillary

BENCHMARK_MAIN();

// The HTML to RTF direction, every operation alone.
#include "html_to_rtf/blocks/breaks.h"
#include "html_to_rtf/blocks/lists.h"
#include "html_to_rtf/blocks/paragraphs.h"
#include "html_to_rtf/characters/named_entities.rules.h"
#include "html_to_rtf/characters/runs.h"
#include "html_to_rtf/characters/windows_1252.rules.h"
#include "html_to_rtf/driver/convert_html_document.h"
#include "html_to_rtf/driver/page_mappings.rules.h"
#include "html_to_rtf/inline/anchors.h"
#include "html_to_rtf/inline/backgrounds.h"
#include "html_to_rtf/inline/colours.h"
#include "html_to_rtf/inline/font_sizes.h"
#include "html_to_rtf/inline/fonts.h"
#include "html_to_rtf/inline/spans.h"
#include "html_to_rtf/tables/prefilters.h"
#include "html_to_rtf/tables/table_borders.h"
#include "html_to_rtf/tables/table_markup.h"
#include "html_to_rtf/tables/table_widths.h"
#include "html_to_rtf/tables/tables.h"
#include "registry.h"
#include "rules/run.h"

namespace quillary::routine {

using namespace HTMLRTFConverter;

namespace {

// Routines that change a text in place give it as the result too.
void AddInPlace(Registry& registry, const char* name, void (*routine)(Text&)) {
  registry.Add(name, {Kind::Text}, [routine](Call& call) {
    routine(call.text(0));
    call.result = ToJson(call.text(0));
  });
}

void AddInPlace(Registry& registry, const char* name, void (*routine)(const Apartment&, Text&)) {
  registry.Add(name, {Kind::Text}, [routine](Call& call) {
    routine(call.apartment(), call.text(0));
    call.result = ToJson(call.text(0));
  });
}

void AddInPlace(Registry& registry, const rules::Chain& chain) {
  registry.Add(chain.name, {Kind::Text}, [&chain](Call& call) {
    call.text(0) = rules::RunOver(chain, StartRewriting(call.apartment(), call.text(0)));
    call.result = ToJson(call.text(0));
  });
}

// Handlers append to RtfOut, and give nothing.
void AddHandler(Registry& registry, const char* name, void (*handler)(HtmlToRtfState&)) {
  registry.Add(name, {}, [handler](Call& call) { handler(call.html_state()); });
}
void AddHandler(Registry& registry, const char* name, void (*handler)(HtmlToRtfState&, TextView)) {
  registry.Add(name, {Kind::Text}, [handler](Call& call) { handler(call.html_state(), call.text(0)); });
}
void AddHandler(Registry& registry, const char* name, void (*handler)(Apartment&, TextView)) {
  registry.Add(name, {Kind::Text}, [handler](Call& call) { handler(call.apartment(), call.text(0)); });
}

void AddEncoder(Registry& registry, const char* name, std::int32_t (*encode)(Text&, std::int32_t)) {
  registry.Add(name, {Kind::Text, Kind::Integer32},
               [encode](Call& call) { call.result = encode(call.text(0), call.integer(1)); });
}

void AddColourPart(Registry& registry, const char* name, std::int16_t (*part)(TextView)) {
  registry.Add(name, {Kind::Text}, [part](Call& call) { call.result = part(call.text(0)); });
}

void AddCharacters(Registry& registry) {
  AddInPlace(registry, "CollapseSpaces", CollapseSpaces);
  AddInPlace(registry, "DecodeNumericEntities", DecodeNumericEntities);
  AddInPlace(registry, "DecodeNamedEntities", DecodeNamedEntities);
  AddInPlace(registry, "EncodeHighChars", EncodeHighChars);
  AddInPlace(registry, chains::MapWindows1252);
  AddEncoder(registry, "EncodeUtf8Pair", EncodeUtf8Pair);
  AddEncoder(registry, "EncodeUtf8Triple", EncodeUtf8Triple);
  registry.Add("UnescapeQuotes", {Kind::Text},
               [](Call& call) { call.result = ToJson(UnescapeQuotes(call.text(0))); });
  registry.Add("CyrillicToEntities", {Kind::Text},
               [](Call& call) { call.result = ToJson(CyrillicToEntities(call.text(0))); });
  registry.Add("LanguageCode", {Kind::Integer16},
               [](Call& call) { call.result = LanguageCode(call.html_state(), call.integer(0)); });
  registry.Add("AnsiValue", {Kind::Text}, [](Call& call) {
    if (call.text(0).size() != 1) throw Refusal("usage");
    call.result = AnsiValue(call.text(0)[0]);
  });
}

void AddInline(Registry& registry) {
  AddHandler(registry, "OpenFont", OpenFont);
  AddHandler(registry, "CloseFont", CloseFont);
  AddHandler(registry, "OpenSpan", OpenSpan);
  AddHandler(registry, "CloseSpan", CloseSpan);
  AddHandler(registry, "ApplyBackground", ApplyBackground);
  AddHandler(registry, "OpenAnchor", OpenAnchor);
  AddHandler(registry, "CloseAnchor", CloseAnchor);
  AddInPlace(registry, "NormaliseCssColour", NormaliseCssColour);
  AddInPlace(registry, "DropRepeatedFontTags", DropRepeatedFontTags);
  AddColourPart(registry, "ColourRed", ColourRed);
  AddColourPart(registry, "ColourGreen", ColourGreen);
  AddColourPart(registry, "ColourBlue", ColourBlue);
  registry.Add("ReadBackground", {Kind::Text},
               [](Call& call) { call.result = ToJson(ReadBackground(call.apartment(), call.text(0))); });
  registry.Add("HtmlFontSize", {Kind::Text, Kind::Mode},
               [](Call& call) { call.result = ToJson(HtmlFontSize(call.text(0), call.integer(1) == 1)); });
}

void AddBlocks(Registry& registry) {
  AddHandler(registry, "EmitBreak", EmitBreak);
  AddHandler(registry, "OpenParagraph", OpenParagraph);
  AddHandler(registry, "CloseParagraph", CloseParagraph);
  AddHandler(registry, "OpenBlockquote", OpenBlockquote);
  AddHandler(registry, "CloseBlockquote", CloseBlockquote);
  AddHandler(registry, "DrawRule", DrawRule);
  AddHandler(registry, "OpenListItem", OpenListItem);
  AddHandler(registry, "CloseListItem", CloseListItem);
  AddHandler(registry, "OpenOrderedList", OpenOrderedList);
  AddHandler(registry, "OpenBulletList", OpenBulletList);
  AddHandler(registry, "CloseList", CloseList);
  AddInPlace(registry, "ConvertTableDivs", ConvertTableDivs);
  registry.Add("ListLabel", {Kind::Integer16, Kind::Text}, [](Call& call) {
    const auto counter = static_cast<std::int16_t>(call.integer(0));
    call.result = ToJson(ListLabel(call.html_state(), counter, call.text(1)));
  });
}

using TableHandler = void (*)(Apartment&, TextView, std::int32_t);

void AddTableHandler(Registry& registry, const char* name, TableHandler handler) {
  registry.Add(name, {Kind::Text, Kind::Integer32},
               [handler](Call& call) { handler(call.apartment(), call.text(0), call.integer(1)); });
}

void AddHandler(Registry& registry, const char* name, void (*handler)(Apartment&)) {
  registry.Add(name, {}, [handler](Call& call) { handler(call.apartment()); });
}

bool IsSet(const Call& call, std::size_t index) { return call.integer(index) != 0; }

void AddHtmlTables(Registry& registry) {
  AddTableHandler(registry, "OpenTable", OpenTable);
  AddTableHandler(registry, "OpenRow", OpenRow);
  AddTableHandler(registry, "OpenCell", OpenCell);
  AddHandler(registry, "CloseTable", CloseTable);
  AddHandler(registry, "CloseRow", CloseRow);
  AddHandler(registry, "CloseCell", CloseCell);
  AddHandler(registry, "ParseTableBorders", ParseTableBorders);
  registry.Add("CellBorders", {Kind::Text, Kind::Mode, Kind::Mode, Kind::Mode, Kind::Mode}, [](Call& call) {
    const CellPlace place{IsSet(call, 1), IsSet(call, 2), IsSet(call, 3), IsSet(call, 4)};
    call.result = ToJson(CellBorders(call.apartment(), call.text(0), place));
  });
  registry.Add("CellShading", {Kind::Text},
               [](Call& call) { call.result = ToJson(CellShading(call.apartment(), call.text(0))); });
  registry.Add("ComputeTableWidths", {Kind::Text, Kind::Integer32, Kind::Integer16}, [](Call& call) {
    Integer16 room = call.integer(2);
    Text widths;
    const auto show_room = [&] { call.raw(2) = std::int16_t{room}; };
    try {
      call.result = ComputeTableWidths(call.text(0), call.integer(1), room, widths);
    } catch (const Failure&) {
      show_room();
      throw;
    }
    show_room();
    OpenLevel(call.html_state()).widths = widths;
  });
  AddInPlace(registry, "RepairRowsAndCells", RepairRowsAndCells);
  AddInPlace(registry, "ExpandRowspans", ExpandRowspans);
  registry.Add("FindLevelStart", {Kind::Text, Kind::Text},
               [](Call& call) { call.result = FindLevelStart(call.text(0), call.text(1)); });
  registry.Add("ExtractRow", {Kind::Text},
               [](Call& call) { call.result = ToJson(ExtractRow(call.text(0))); });
  registry.Add("ExtractCell", {Kind::Text},
               [](Call& call) { call.result = ToJson(ExtractCell(call.text(0))); });
  registry.Add("StripNestedTables", {Kind::Text},
               [](Call& call) { call.result = ToJson(StripNestedTables(call.text(0))); });
  registry.Add("CountColumns", {Kind::Text}, [](Call& call) { call.result = CountColumns(call.text(0)); });
}

}  // namespace

void AddHtmlToRtfRoutines(Registry& registry) {
  registry.Add("ConvertHtmlDocument", {Kind::Text, Kind::Text, Kind::Text, Kind::Integer16}, [](Call& call) {
    call.result = ToJson(
        ConvertHtmlDocument(call.apartment(), call.text(0), call.text(1), call.text(2), call.integer(3)));
  });
  AddInPlace(registry, chains::MapHeadings);
  AddInPlace(registry, chains::MapSmall);
  AddInPlace(registry, chains::MapPreformatted);
  AddInPlace(registry, chains::MapTableHeaders);
  AddCharacters(registry);
  AddInline(registry);
  AddBlocks(registry);
  AddHtmlTables(registry);
}

}  // namespace quillary::routine

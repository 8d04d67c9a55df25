#include "html_to_rtf/driver/html_steps.h"

#include <utility>

#include "html_to_rtf/blocks/paragraphs.h"
#include "html_to_rtf/characters/named_entities.rules.h"
#include "html_to_rtf/characters/windows_1252.rules.h"
#include "html_to_rtf/driver/document.h"
#include "html_to_rtf/driver/page_frame.h"
#include "html_to_rtf/driver/page_mappings.rules.h"
#include "html_to_rtf/driver/tag_loop.h"
#include "html_to_rtf/floats/floats.h"
#include "html_to_rtf/inline/css_values.rules.h"
#include "html_to_rtf/inline/fonts.h"
#include "html_to_rtf/tables/prefilters.h"
#include "rules/run.h"
#include "stylesheet/style_sheets.h"

namespace quillary::HTMLRTFConverter {
namespace {

constexpr const rules::Chain* kTagLoopChains[] = {&chains::CssColourNames, &chains::CssSizeNames,
                                                  &chains::NamedEntities, &chains::MapWindows1252};

constexpr Step kPreparingSteps[] = {
    {"SupplyFrame", On::Source, SupplyFrame},
    {"DecodeCyrillic", On::Source, DecodeCyrillic},
    {"StartState", On::Page, StartState},
    {"DetectCharset", On::Page, ReadPageKind},
    {"ReadWordDefinitions", On::Page, ReadDefinitions},
    {"ConvertIso2022Jp", On::Page, DecodeIso2022Jp},
    {"RepairRowsAndCells", On::Page, RepairRowsAndCells},
    {"DropRepeatedFontTags", On::Page, DropRepeatedFontTags},
    {"StartFonts", On::Page, StartFonts},
    {"CollectStyleSheets", On::Page, CollectSheets},
    {"SetBaseLanguage", On::Page, SetBaseLanguage},
};

constexpr Step kConvertingSteps[] = {
    {"FoldLineEnds", On::Page, &chains::FoldLineEnds},
    {"StripStyleBlocks", On::Page, stylesheet::StripStyleBlocks},
    {"FloatsToTables", On::Page, FloatsToTables},
    {"ConvertTableDivs", On::Page, ConvertTableDivs},
    {"ExpandRowspans", On::Page, ExpandRowspans},
    {"MapHeadings", On::Page, &chains::MapHeadings},
    {"MapSmall", On::Page, &chains::MapSmall},
    {"MarkArabicRuns", On::Page, MarkArabicRuns},
    {"MapPreformatted", On::Page, &chains::MapPreformatted},
    {"MapTableHeaders", On::Page, &chains::MapTableHeaders},
    {"CutHead", On::Page, CutHead},
    {"TakePassLimit", On::Page, TakePassLimit},
    {"ApplyStyleRules", On::Page, ApplySheets},
    {"StartBody", On::Page, StartBody},
    {"WalkTags", On::Body, WalkTags, kTagLoopChains},
    {"RestoreArabicRuns", On::Body, &chains::RestoreArabicRuns},
    {"AssembleDocument", On::Document, AssembleDocument},
};

void RunChain(const rules::Chain& chain, const Step& step, Conversion& conversion) {
  if (step.works_on == On::Page) return rules::Run(chain, conversion.page());
  Text& body = conversion.state().RtfOut;
  body = rules::RunOver(chain, StartRewriting(conversion.apartment, std::move(body)));
}

}  // namespace

std::span<const Step> PreparingSteps() { return kPreparingSteps; }
std::span<const Step> ConvertingSteps() { return kConvertingSteps; }

void RunStep(const Step& step, Conversion& conversion) {
  if (const auto chain = std::get_if<const rules::Chain*>(&step.run))
    return RunChain(**chain, step, conversion);
  if (const auto over_page = std::get_if<void (*)(Text&)>(&step.run))
    return (*over_page)(conversion.page().Edit());
  std::get<void (*)(Conversion&)>(step.run)(conversion);
}

}  // namespace quillary::HTMLRTFConverter

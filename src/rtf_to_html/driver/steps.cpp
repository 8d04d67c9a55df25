#include "rtf_to_html/driver/steps.h"

#include "html_finishing/collapse_first_list.h"
#include "html_finishing/finish_entities_and_lists.rules.h"
#include "html_finishing/font_tags.rules.h"
#include "html_finishing/tidy_layout.rules.h"
#include "links/bracket_links.h"
#include "links/email_addresses.h"
#include "links/label_links.h"
#include "links/link_lists.h"
#include "links/scan_links.h"
#include "rtf_to_html/document_tables/colour_table.h"
#include "rtf_to_html/document_tables/colour_table.rules.h"
#include "rtf_to_html/document_tables/font_table.h"
#include "rtf_to_html/document_tables/font_table.rules.h"
#include "rtf_to_html/driver/convert_to_html.rules.h"
#include "rtf_to_html/driver/page_shell.h"
#include "rtf_to_html/page_repairs/closing_repairs.rules.h"
#include "rtf_to_html/page_repairs/default_font.h"
#include "rtf_to_html/page_repairs/list_repairs.rules.h"
#include "rtf_to_html/page_repairs/table_blocks.h"
#include "rtf_to_html/page_repairs/table_repairs.h"
#include "rtf_to_html/page_repairs/table_repairs.rules.h"
#include "rtf_to_html/rewriting/rewrite_bullets.rules.h"
#include "rtf_to_html/rewriting/rewrite_headings.rules.h"
#include "rtf_to_html/rewriting/rewrite_rtf.h"
#include "rtf_to_html/rewriting/rewrite_rtf.rules.h"
#include "rtf_to_html/segments/byte_maps.rules.h"
#include "rtf_to_html/segments/hex_escapes.rules.h"
#include "rtf_to_html/segments/segment_body_words.rules.h"
#include "rtf_to_html/segments/segment_entry.rules.h"
#include "rtf_to_html/segments/segment_remaining_words.rules.h"
#include "rtf_to_html/segments/segment_tables.rules.h"
#include "rules/run.h"
#include "rules/sentinels.h"

namespace quillary::modQuillary {
namespace {

bool AllLinks(Conversion& conversion) { return conversion.all_links; }
bool BracketLinks(Conversion& conversion) { return !conversion.all_links; }
bool Spans(Conversion& conversion) { return conversion.state().options.spans; }
bool NoFonts(Conversion& conversion) {
  return conversion.state().options.no_fonts && !conversion.state().options.spans;
}

void RewriteSource(Conversion& conversion) {
  const Text& source = conversion.texts.source;
  Text rewritten;
  rewritten.reserve(source.size() + source.size() / 8);  // it grows
  rewritten = source;
  RewriteRtf(conversion.apartment, rewritten);
}

void RestoreAtSigns(rules::Rewriting& page) { page.Replace(sentinels::at_sign, u"@", Compare::Binary); }

void ResolvePictureMarks(Conversion& conversion) {
  namespace stages = chains::PictureMarks_stages;
  rules::RunStage(chains::PictureMarks, stages::marks, conversion.page());
  rules::RunStage(chains::PictureMarks,
                  conversion.state().EquationSeen ? stages::equation_ends : stages::ends, conversion.page());
}

constexpr const rules::Chain* kColourTableChains[] = {&chains::ColourTableCleaning};
constexpr const rules::Chain* kFontTableChains[] = {&chains::FontTableCleaning};
constexpr const rules::Chain* kRewriteRtfChains[] = {&chains::RewriteChainBullets,
                                                     &chains::RewriteChainHeadings,
                                                     &chains::BulletOpenerSeparation,
                                                     &chains::SegmentEntryRepairs,
                                                     &chains::SegmentDocumentStart,
                                                     &chains::SegmentHeadBreaks,
                                                     &chains::HideEscapedEscapes,
                                                     &chains::OpenForeignRuns,
                                                     &chains::MoveDegreeSigns,
                                                     &chains::RemoveWesternLanguages,
                                                     &chains::PartEscapesFromWords,
                                                     &chains::WesternBytes,
                                                     &chains::GreekBytes,
                                                     &chains::TurkishBytes,
                                                     &chains::SegmentWords,
                                                     &chains::SegmentTabs,
                                                     &chains::SegmentWordsBack,
                                                     &chains::SegmentLeftovers,
                                                     &chains::SegmentRemainingWords,
                                                     &chains::SegmentAlignment,
                                                     &chains::SegmentShifts,
                                                     &chains::SegmentTableRows,
                                                     &chains::SegmentRowSeams,
                                                     &chains::SegmentTableEnds};
constexpr const rules::Chain* kPictureMarkChains[] = {&chains::PictureMarks};
constexpr const rules::Chain* kLastCellChains[] = {&chains::EmptyLastCells};

// One row a step. A table block that cannot be balanced sends the sequence back
// to DropCellMarks.
constexpr Step kSteps[] = {
    // What the caller gave, and the tables of the document.
    {"StartState", On::State, StartState},
    {"WriteDebugDump", On::Source, DumpSource},
    {"SetBodyMode", On::State, SetBodyMode},
    {"FillSizeTable", On::State, [](Conversion& conversion) { FillSizeTable(conversion.state()); }},
    {"ReadColourTable", On::Source,
     [](Conversion& conversion) { ReadColourTable(conversion.state(), conversion.tables); }, nullptr,
     kColourTableChains},
    {"ReadFontTable", On::Source,
     [](Conversion& conversion) { ReadFontTable(conversion.state(), conversion.tables); }, nullptr,
     kFontTableChains},

    // From the first tag to the last.
    {"WriteHead", On::Page, WriteHead},
    {"WriteBodyTag", On::Page, WriteBodyTag},
    {"RewriteRtf", On::Source, RewriteSource, nullptr, kRewriteRtfChains},
    {"CloseCentre", On::Page, CloseCentreAtEnd},
    {"BalanceTables", On::Page, BalanceTables},
    {"BalanceFonts", On::Page, BalanceFonts},
    {"CloseDocument", On::Page, CloseDocument},
    {"AssemblyClean", On::Page, &chains::AssemblyClean},

    // Links and pictures.
    {"LoadLinkPrefixes", On::State,
     [](Conversion& conversion) { links::LoadLinkPrefixes(conversion.state()); }, AllLinks},
    {"LoadLinkDelimiters", On::State,
     [](Conversion& conversion) { links::LoadLinkDelimiters(conversion.state()); }, AllLinks},
    {"ScanLinks", On::Page, [](Conversion& conversion) { links::ScanLinks(conversion.state()); }, AllLinks},
    {"ScanEmailAddresses", On::Page,
     [](Conversion& conversion) { links::ScanEmailAddresses(conversion.state()); }, AllLinks},
    {"RestoreAtSigns", On::Page, RestoreAtSigns, AllLinks},
    {"LoadBracketPrefixes", On::State,
     [](Conversion& conversion) { links::LoadBracketPrefixes(conversion.state()); }, BracketLinks},
    {"LoadBracketDelimiters", On::State,
     [](Conversion& conversion) { links::LoadBracketDelimiters(conversion.state()); }, BracketLinks},
    {"ScanBracketLinks", On::Page,
     [](Conversion& conversion) { links::ScanBracketLinks(conversion.state()); }, BracketLinks},
    {"ScanBracketLinks", On::Page,
     [](Conversion& conversion) { links::ScanBracketLinks(conversion.state()); }, BracketLinks},
    {"ResolvePictureMarks", On::Page, ResolvePictureMarks, nullptr, kPictureMarkChains},

    // Repairs of the page.
    {"TidyLayout", On::Page, &chains::TidyLayout},
    {"OpenFirstCellWidth", On::Page, OpenFirstCellWidth},
    {"RepairTableHeads", On::Page, &chains::RepairTableHeads},
    {"SupplyTableHead", On::Page,
     [](Conversion& conversion) { SupplyTableHead(conversion.page(), conversion.texts.colour); }},
    {"RepairRowShapes", On::Page, &chains::RepairRowShapes},
    {"DropBorderSpacing", On::Page, &chains::DropBorderSpacing},
    {"MarkBullets", On::Page, &chains::MarkBullets},
    {"RepairRowStarts", On::Page, &chains::RepairRowStarts},
    {"DropCellMarks", On::Page, &chains::DropCellMarks},
    {"IndentFirstNumbers", On::Page, &chains::IndentFirstNumbers},
    {"IndentSecondNumbers", On::Page, &chains::IndentSecondNumbers},
    {"RepairLabelAnchors", On::Page, [](rules::Rewriting& page) { links::RepairLabelAnchors(page); }},
    {"RepairLabelLinks", On::Page, [](rules::Rewriting& page) { links::RepairLabelLinks(page); }},
    {"SupplyDefaultFont", On::Page,
     [](Conversion& conversion) {
       SupplyDefaultFont(conversion.page(), conversion.state(), conversion.texts.colour);
     }},
    {"MendSymbolBullets", On::Page, &chains::MendSymbolBullets},
    {"ShortenBulletIndents", On::Page, &chains::ShortenBulletIndents},
    {"MendSectionBullets", On::Page, &chains::MendSectionBullets},
    {"MendListIndents", On::Page, &chains::MendListIndents},
    {"MendBoldNumbers", On::Page, &chains::MendBoldNumbers},
    {"BalanceTableBlocks",
     On::Page,
     [](Conversion& conversion) {
       conversion.go_back = BalanceTableBlocks(conversion.page(), conversion.apartment) == BlockWalk::GoBack;
     },
     nullptr,
     {},
     "DropCellMarks"},
    {"DropStrayClosers", On::Page, &chains::DropStrayClosers},
    {"DropEmptyLastCells", On::Page, DropEmptyLastCells, nullptr, kLastCellChains},
    {"MendLowQuotes", On::Page, &chains::MendLowQuotes},
    {"DropCellWidths", On::Page, &chains::DropCellWidths},
    {"DropFirstCellWidth", On::Page, DropFirstCellWidth},

    // Finishing.
    {"FinishEntitiesAndLists", On::Page, &chains::FinishEntitiesAndLists},
    {"CollapseFirstList", On::Page, [](rules::Rewriting& page) { html_finishing::CollapseFirstList(page); }},
    {"MergeAdjoiningFonts", On::Page, &chains::MergeAdjoiningFonts},
    {"DropEmptyCellForms", On::Page, &chains::DropEmptyCellForms},
    {"TidyDocumentEnd", On::Page, &chains::TidyDocumentEnd},
    {"ConvertFontsToSpans", On::Page, &chains::ConvertFontsToSpans, Spans},
    {"RemoveFontTags", On::Page, &chains::RemoveFontTags, NoFonts},
};

}  // namespace

std::span<const Step> Steps() { return kSteps; }

void RunStep(const Step& step, Conversion& conversion) {
  if (const auto chain = std::get_if<const rules::Chain*>(&step.run)) {
    rules::Run(**chain, conversion.page(), &conversion.state());
  } else if (const auto function = std::get_if<PageFunction>(&step.run)) {
    (*function)(conversion.page());
  } else {
    std::get<ConversionFunction>(step.run)(conversion);
  }
}

}  // namespace quillary::modQuillary

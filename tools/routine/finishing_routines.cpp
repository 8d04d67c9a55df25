// The repairs of the assembled page and its finishing, where they are more
// than a chain of rules, and the HTML cleaner. Plain chains have routines of
// the same names.
#include "html_finishing/font_tags.h"
#include "html_finishing/late_finish.h"
#include "registry.h"
#include "rtf_to_html/page_repairs/list_repairs.h"
#include "rtf_to_html/page_repairs/table_repairs.h"

namespace quillary::routine {
namespace {

using PageRoutine = void (*)(rules::Rewriting&);
using ColourRoutine = void (*)(rules::Rewriting&, TextView);
using CleanerRoutine = Text (platform::HtmlCleaner::*)(TextView);

void AddPage(Registry& registry, const char* name, PageRoutine routine) {
  registry.Add(name, {Kind::Text}, [routine](Call& call) {
    rules::Rewriting page(call.text(0), &call.apartment());
    routine(page);
    call.result = ToJson(page.text());
  });
}

void AddColour(Registry& registry, const char* name, ColourRoutine routine) {
  registry.Add(name, {Kind::Text, Kind::Text}, [routine](Call& call) {
    rules::Rewriting page(call.text(0), &call.apartment());
    routine(page, call.text(1));
    call.result = ToJson(page.text());
  });
}

void AddCleaner(Registry& registry, const char* name, CleanerRoutine routine) {
  registry.Add(name, {Kind::Text}, [routine](Call& call) {
    const auto cleaner = call.apartment().services.html_cleaner();
    call.result = ToJson((cleaner.get()->*routine)(call.text(0)));
  });
}

}  // namespace

void AddFinishingRoutines(Registry& registry) {
  AddPage(registry, "OpenFirstCellWidth", modQuillary::OpenFirstCellWidth);
  AddColour(registry, "SupplyTableHead", modQuillary::SupplyTableHead);
  AddPage(registry, "BalanceTableBlocks",
          [](rules::Rewriting& page) { modQuillary::BalanceTableBlocks(page); });
  AddPage(registry, "DropEmptyLastCells", modQuillary::DropEmptyLastCells);
  AddPage(registry, "DropFirstCellWidth", modQuillary::DropFirstCellWidth);
  AddColour(registry, "SupplyDefaultFont", modQuillary::SupplyDefaultFont);
  registry.Add("LateFinish", {Kind::Text}, [](Call& call) { html_finishing::LateFinish(call.text(0)); });
  AddCleaner(registry, "TidyDLL_CleanHTML", &platform::HtmlCleaner::TidyDLL_CleanHTML);
  AddCleaner(registry, "TidyDLL_ToXHTML", &platform::HtmlCleaner::TidyDLL_ToXHTML);
  AddCleaner(registry, "TidyDLL_ParseHTML", &platform::HtmlCleaner::TidyDLL_ParseHTML);
}

}  // namespace quillary::routine

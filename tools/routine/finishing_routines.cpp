// The repairs of the assembled page and its finishing, where they are more
// than a chain of rules, and the HTML cleaner. Plain chains have routines of
// the same names.
#include "html_finishing/late_finish.rules.h"
#include "registry.h"
#include "rtf_to_html/page_repairs/default_font.h"
#include "rtf_to_html/page_repairs/table_blocks.h"
#include "rtf_to_html/page_repairs/table_repairs.h"

namespace quillary::routine {
namespace {

using PageRoutine = void (*)(rules::Rewriting&);
using CleanerRoutine = Text (platform::HtmlCleaner::*)(TextView);

void AddPage(Registry& registry, const char* name, PageRoutine routine) {
  registry.Add(name, {Kind::Text}, [routine](Call& call) {
    rules::Rewriting page = StartRewriting(call.apartment(), call.text(0));
    routine(page);
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
  registry.Add("SupplyTableHead", {Kind::Text, Kind::Text}, [](Call& call) {
    rules::Rewriting page = StartRewriting(call.apartment(), call.text(0));
    modQuillary::SupplyTableHead(page, call.text(1));
    call.result = ToJson(page.text());
  });
  registry.Add("BalanceTableBlocks", {Kind::Text}, [](Call& call) {
    rules::Rewriting page = StartRewriting(call.apartment(), call.text(0));
    modQuillary::BalanceTableBlocks(page, call.apartment());
    call.result = ToJson(page.text());
  });
  AddPage(registry, "DropEmptyLastCells", modQuillary::DropEmptyLastCells);
  AddPage(registry, "DropFirstCellWidth", modQuillary::DropFirstCellWidth);
  registry.Add("SupplyDefaultFont", {Kind::Text, Kind::Text}, [](Call& call) {
    rules::Rewriting page = StartRewriting(call.apartment(), call.text(0));
    modQuillary::SupplyDefaultFont(page, call.state(), call.text(1));
    call.result = ToJson(page.text());
  });
  registry.Add("LateFinish", {Kind::Text},
               [](Call& call) { call.text(0) = rules::RunOver(chains::LateFinish, call.text(0)); });
  AddCleaner(registry, "TidyDLL_CleanHTML", &platform::HtmlCleaner::TidyDLL_CleanHTML);
  AddCleaner(registry, "TidyDLL_ToXHTML", &platform::HtmlCleaner::TidyDLL_ToXHTML);
  AddCleaner(registry, "TidyDLL_ParseHTML", &platform::HtmlCleaner::TidyDLL_ParseHTML);
}

}  // namespace quillary::routine

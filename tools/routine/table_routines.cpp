// Table repair, the carry-over of cell formats and the first list of a page. The
// chain of entities and lists is a routine by itself.
#include "html_finishing/cell_formats.h"
#include "html_finishing/collapse_first_list.h"
#include "registry.h"
#include "table_repair/balance_table_tags.h"
#include "table_repair/copy_first_cell_format.h"
#include "table_repair/empty_cells.h"
#include "table_repair/repair_tables.h"
#include "table_repair/span_short_rows.h"
#include "table_repair/table_tags.h"

namespace quillary::routine {
namespace {

namespace repair = RepairHTMLTable;

Json TagToJson(const repair::TableTag& tag) {
  return {{"Name", ToJson(tag.Name)}, {"StartPos", tag.StartPos}, {"EndPos", tag.EndPos}};
}

void AddTagScans(Registry& registry) {
  registry.Add("NextTableTag", {Kind::Text, Kind::Integer32}, [](Call& call) {
    call.result = TagToJson(repair::NextTableTag(call.text(0), call.integer(1)));
  });
  registry.Add("NextCellTag", {Kind::Text, Kind::Integer32}, [](Call& call) {
    call.result = TagToJson(repair::NextCellTag(call.text(0), call.integer(1)));
  });
  registry.Add("InsertAfterLastTag", {Kind::Text, Kind::Text, Kind::Text}, [](Call& call) {
    call.result = ToJson(repair::InsertAfterLastTag(call.text(0), call.text(1), call.text(2)));
  });
}

void AddRepairs(Registry& registry) {
  registry.Add("RepairTables", {Kind::Text, Kind::Integer16}, [](Call& call) {
    call.result = ToJson(repair::RepairTables(call.text(0), call.integer(1), call.apartment().working_limit));
  });
  registry.Add("RepairOneTable", {Kind::Text, Kind::Integer16}, [](Call& call) {
    call.result =
        ToJson(repair::RepairOneTable(call.text(0), call.integer(1), call.apartment().working_limit));
  });
  registry.Add("BalanceTableTags", {Kind::Text},
               [](Call& call) { call.result = ToJson(repair::BalanceTableTags(call.text(0))); });
  registry.Add("FillEmptyCells", {Kind::Text}, [](Call& call) {
    call.result = ToJson(repair::FillEmptyCells(call.text(0), call.apartment().working_limit));
  });
  registry.Add("DropEmptyCells", {Kind::Text}, [](Call& call) {
    call.result = ToJson(repair::DropEmptyCells(call.text(0), call.apartment().working_limit));
  });
  registry.Add("SpanShortRows", {Kind::Text},
               [](Call& call) { call.result = ToJson(repair::SpanShortRows(call.text(0))); });
  registry.Add("CopyFirstCellFormat", {Kind::Text}, [](Call& call) {
    call.result = ToJson(repair::CopyFirstCellFormat(call.text(0), call.apartment().working_limit));
  });
}

bool IsTrue(const Json& value) {
  if (value.is_boolean()) return value.get<bool>();
  if (value.is_number_integer()) return value != 0;
  throw Refusal("usage");
}

void AddCellFormats(Registry& registry) {
  registry.Add("BalanceCellFormatting", {Kind::Text}, [](Call& call) {
    call.result = ToJson(modTable::BalanceCellFormatting(call.apartment(), call.text(0)));
  });
  registry.Add("ResetCellFragments", {}, [](Call& call) { modTable::ResetCellFragments(call.state()); });
  registry.Add("AddCellFragment", {Kind::Text, Kind::Any}, [](Call& call) {
    modTable::AddCellFragment(call.state(), call.text(0), IsTrue(call.raw(1)));
  });
  registry.Add("BalanceFragment", {Kind::Integer32},
               [](Call& call) { modTable::BalanceFragment(call.state(), call.integer(0)); });
}

}  // namespace

void AddEntityRoutines(Registry& registry) {
  registry.Add("CollapseFirstList", {Kind::Text},
               [](Call& call) { call.result = ToJson(html_finishing::CollapseFirstList(call.text(0))); });
}

void AddTableRoutines(Registry& registry) {
  AddTagScans(registry);
  AddRepairs(registry);
  AddCellFormats(registry);
}

}  // namespace quillary::routine

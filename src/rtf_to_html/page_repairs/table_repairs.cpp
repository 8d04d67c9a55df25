#include "rtf_to_html/page_repairs/table_repairs.h"

#include "rtf_to_html/page_repairs/table_repairs.rules.h"
#include "rules/run.h"
#include "table_repair/repair_tables.h"

namespace quillary::modQuillary {
namespace {

constexpr TextView kTableHead =
    u"<table bordercolorlight=\"#000000\" border=\"1\" bordercolordark=\"#000000\" "
    u"bordercolor=\"#000000\" cellspacing=\"0\" cellpadding=\"0\">";

/// The body tag of a page with this background.
Text BodyTagOf(TextView colour) { return u"<BODY BGCOLOR=\"#" + Text(colour) + u"\">"; }

/// The block from `start` to the next `end`, if that stands within 11 units.
TextView WidthBlock(TextView page, std::int32_t start, TextView end) {
  const std::int32_t found = FindText(start, page, end, Compare::IgnoreCase);
  if (found <= start || found >= start + 12) return {};
  return MidView(page, start, found - start);
}

}  // namespace

void OpenFirstCellWidth(rules::Rewriting& page) {
  const std::int32_t start = FindText(1, page.text(), u">\\cellx", Compare::IgnoreCase);
  if (start < 21) return;
  const TextView before_font = WidthBlock(page.text(), start, u"<font ");
  if (!before_font.empty()) {
    page.Replace(Text(before_font) + u"<", u">" + Text(kTableHead) + u"<tr><td><", Compare::IgnoreCase);
  }
  // The position is still the old one, whatever the page holds there now.
  Text width(WidthBlock(page.text(), start, u"</font"));
  if (width.empty()) return;
  ReplaceIn(width, u"<", u"");
  ReplaceIn(width, u">", u"");
  const TextView number = MidView(width, 7);
  if (number.size() == 4 && IsNumeric(number)) page.Replace(width, u"", Compare::Binary, 2);
}

void SupplyTableHead(rules::Rewriting& page, TextView colour) {
  if (!page.Holds(u"</table>", Compare::IgnoreCase) || page.Holds(u"<table", Compare::IgnoreCase)) return;
  const Text body = BodyTagOf(colour);
  page.Replace(body, body + Text(kTableHead), Compare::IgnoreCase, 1);
}

void RunTableRepair(rules::Rewriting& text) {
  Attempt([&] {
    text.Assign(RepairHTMLTable::RepairTables(text.text(), RepairHTMLTable::kFillEmptyCells, text.limit()));
  });
}

void DropEmptyLastCells(rules::Rewriting& page) {
  const std::int32_t joints =
      CountOccurrences(page.text(), u"></font></TD></tr><tr><TD>", Compare::IgnoreCase);
  if (joints > 4) rules::Run(chains::EmptyLastCells, page);
}

void DropFirstCellWidth(rules::Rewriting& page) {
  constexpr TextView kRowWidth = u"<tr><td>\\cellx";
  const std::int32_t start = FindText(1, page.text(), kRowWidth, Compare::IgnoreCase);
  if (start <= 1) return;
  const Text number = Mid(page.text(), start + Length(kRowWidth), 4);
  if (!IsNumeric(number)) return;
  page.Replace(Text(kRowWidth) + number + u"<b>", u"<tr><td><b>", Compare::IgnoreCase);
}

}  // namespace quillary::modQuillary

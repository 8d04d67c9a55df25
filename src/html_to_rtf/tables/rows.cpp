#include "html_to_rtf/blocks/breaks.h"
#include "html_to_rtf/inline/rtf_words.h"
#include "html_to_rtf/inline/tag_values.h"
#include "html_to_rtf/tables/row_words.h"
#include "html_to_rtf/tables/table_markup.h"
#include "html_to_rtf/tables/table_widths.h"
#include "html_to_rtf/tables/tables.h"

namespace quillary::HTMLRTFConverter {
namespace {

void WriteOuterRow(Apartment& apartment, CellPlace place, std::int32_t position, TextView shading) {
  HtmlToRtfState& state = apartment.html_to_rtf;
  const TableLevel& level = OpenLevel(state);
  Text words(level.centred ? u"\\trowd\\trgaph30\\trleft-30\\trqc " : u"\\trowd\\trgaph30\\trleft-30 ");
  words += RowWords(level);
  // No table is wider than the page.
  state.TableScale = level.tableWidth > kPagePixels ? 1.0 * kPagePixels / level.tableWidth : 1.0;
  words += OuterCells(apartment, RowAt(state, position), place, shading);
  Append(state, words);
  Append(state, u"\r\n");
}

void WriteNestedRow(Apartment& apartment, CellPlace place) {
  HtmlToRtfState& state = apartment.html_to_rtf;
  TableLevel& level = OpenLevel(state);
  // The cell of the row is closed by now, so that every nested row is centred.
  Text words = u"\\intbl\\itap" + Decimal(state.TableDepth);
  words += level.cellBrace ? u"{\\*\\nesttableprops\\trowd\\trgaph30 "
                           : u"{\\*\\nesttableprops\\trowd\\trgaph30\\trqc ";
  words += RowWords(level);
  words += NestedCells(apartment, RowAt(state, level.rowPos), place);
  Append(state, words);
  Append(state, level.rowBrace ? u"\\nestrow}}\\intbl\\itap" : u"\\nestrow}\\intbl\\itap", state.TableDepth);
  Append(state, u"\r\n");
  level.rowBrace = false;
}

// Supplies the row of a cell that stands in none.
void SupplyRow(Apartment& apartment, std::int32_t position) {
  HtmlToRtfState& state = apartment.html_to_rtf;
  MarkupPlace end = NextMarkup(state.HtmlWork.text(), static_cast<std::size_t>(position) - 1);
  while (end.kind != TableMarkup::None && end.kind != TableMarkup::RowEnd && end.kind != TableMarkup::Row &&
         end.kind != TableMarkup::TableEnd) {
    end = NextMarkup(state.HtmlWork.text(), end.at + 1);
  }
  if (end.kind != TableMarkup::None) state.HtmlWork.Edit().insert(end.at, u"</TR>");
  OpenRow(apartment, u"<TR>", position);
}

void WriteCellAlignment(HtmlToRtfState& state, TextView tag) {
  for (const TextView name : {u"ALIGN=", u"ALIGN ="}) {
    const std::int32_t found = FindText(1, tag, name);
    if (found == 0) continue;
    const std::int32_t start = found + static_cast<std::int32_t>(name.size());
    const TextView value = ValueBetween(tag, start, FirstEnd(tag, start + 4, {u"\"", u" ", u">"}));
    const Text alignment = ToUpper(Without(value, u"\"'="));
    if (alignment == u"LEFT") Append(state, u"\\ql");
    if (alignment == u"RIGHT") Append(state, u"\\qr");
    if (alignment == u"CENTER") Append(state, u"\\qc");
    if (alignment == u"JUSTIFY") Append(state, u"\\qj");
    return;
  }
}

}  // namespace

void OpenRow(Apartment& apartment, TextView tag, std::int32_t position) {
  HtmlToRtfState& state = apartment.html_to_rtf;
  state.AfterGap = false;
  const Text shading = CellShading(apartment, tag);
  OpenLevel(state).inRow = true;
  if (OpenLevel(state).cellOpen) CloseCell(state);
  if (OpenLevel(state).rowOpen) CloseRow(apartment, u"</TR>");
  TableLevel& level = OpenLevel(state);
  level.rowOpen = true;
  level.rowPos = position;
  if (state.TableDepth == 1) WriteOuterRow(apartment, RowPlace(tag), position, shading);
  level.cellCount = 0;
}

void CloseRow(Apartment& apartment, TextView tag) {
  HtmlToRtfState& state = apartment.html_to_rtf;
  TableLevel& level = OpenLevel(state);
  level.inRow = false;
  state.RestoreHighlight = 5;
  state.PendingPara = false;
  state.TextInTable = false;
  if (level.cellOpen) CloseCell(state);
  if (!level.rowOpen) return;
  if (state.TableDepth == 1) {
    Append(state, level.rowBrace ? u"\\row}\r\n" : u"\\row\r\n");
    level.rowBrace = false;
  } else {
    WriteNestedRow(apartment, RowPlace(tag));
  }
  level.rowOpen = false;
}

void OpenCell(Apartment& apartment, TextView tag, std::int32_t position) {
  HtmlToRtfState& state = apartment.html_to_rtf;
  state.AfterGap = false;
  if (!OpenLevel(state).inRow) SupplyRow(apartment, position);
  TableLevel& level = OpenLevel(state);
  if (level.cellOpen) CloseCell(state);
  level.cellOpen = true;
  Append(state, u"\\intbl\\itap", state.TableDepth);
  for (std::int16_t columns = ReadNumber(tag, u"COLSPAN", 1, 0); columns >= 2; --columns) {
    level.cellCount += kColumnOfSpan + 1;
  }
  ++level.cellCount;
  WriteCellAlignment(state, tag);
}

void CloseCell(HtmlToRtfState& state) {
  Append(state, state.TableDepth == 1 ? u"\\cell" : u"\\nestcell");
  TableLevel& level = OpenLevel(state);
  if (level.cellBrace) {
    Append(state, u"}");
    level.cellBrace = false;
  }
  level.cellCount = level.cellCount % kColumnOfSpan;
  level.cellOpen = false;
  state.PendingPara = false;
  state.TextInTable = false;
  state.RestoreHighlight = 5;
  Append(state, u"\\ql");
}

}  // namespace quillary::HTMLRTFConverter

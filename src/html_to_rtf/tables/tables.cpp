#include "html_to_rtf/tables/tables.h"

#include <cmath>

#include "html_to_rtf/blocks/breaks.h"
#include "html_to_rtf/inline/rtf_words.h"
#include "html_to_rtf/inline/tag_values.h"
#include "html_to_rtf/tables/table_borders.h"
#include "html_to_rtf/tables/table_widths.h"

namespace quillary::HTMLRTFConverter {
namespace {

// A break that an earlier paragraph owes, or that text in front of a nested table needs.
void BreakInFront(HtmlToRtfState& state) {
  if (state.PendingPara) {
    EmitBreak(state, u"P");
    state.PendingPara = false;
    state.TextInTable = false;
  }
  if (state.TextInTable && !state.AfterGap) {
    EmitBreak(state, u"P");
    state.TextInTable = false;
  }
  state.AfterGap = false;
}

const TableLevel& EnclosingLevel(const HtmlToRtfState& state) {
  if (state.TableDepth < 2) throw Failure(Failure::Kind::Subscript);
  return state.TableStack[state.TableDepth - 1];
}

void BeginTable(HtmlToRtfState& state) {
  if (!state.GapSeen) {
    state.TableFirst = true;
  } else if (state.TableDepth == 1) {
    Append(state, u"\r\n\\par\\pard\\plain");
  } else {
    Append(state, u"\r\n\\pard\\plain");
    const Integer16 highlight = EnclosingLevel(state).highlight;
    if (highlight > 0) Append(state, u"\\highlight", highlight);
  }
}

// The first entry is there from the start, as the table before has left it.
void GrowStack(HtmlToRtfState& state) {
  if (state.TableDepth < 1) throw Failure(Failure::Kind::Subscript);
  state.TableStack.Grow(state.TableDepth);
}

void ReadBorder(HtmlToRtfState& state, TextView tag) {
  std::int16_t border = 0;
  Attempt([&] { border = ReadNumber(tag, u"BORDER", 6, 0); });
  const bool wanted = state.TableBorderMode == 1 || (border >= 1 && state.TableBorderMode != 0);
  if (wanted) OpenLevel(state).hasBorder = true;
}

void ReadPadding(HtmlToRtfState& state, TextView tag) {
  std::int16_t padding = 1;
  Attempt([&] { padding = ReadNumber(tag, u"CELLPADDING", 6, 1); });
  OpenLevel(state).padding = padding * std::int64_t{2};
}

void ReadSpacing(HtmlToRtfState& state, TextView tag) {
  std::int16_t spacing = 2;
  Attempt([&] { spacing = ReadNumber(tag, u"CELLSPACING", 6, 2); });
  if (spacing == 2) return;
  TableLevel& level = OpenLevel(state);
  level.borderTop = level.borderLeft = level.borderBottom = level.borderRight = spacing * std::int64_t{10};
}

// The widths of the columns of the enclosing table that its open cell spans, together.
std::int16_t RoomInCell(const HtmlToRtfState& state) {
  const TableLevel& outer = EnclosingLevel(state);
  const int last = outer.cellCount % kColumnOfSpan;
  const auto span = static_cast<int>(std::nearbyint(1.0 * outer.cellCount / kColumnOfSpan));
  return SumOfColumns(outer.widths, last - span - 1, last);
}

void ReadWidths(HtmlToRtfState& state, std::int32_t position) {
  Integer16 room = state.TableDepth == 1 ? kPagePixels : std::int16_t{0};
  if (state.TableDepth != 1) Attempt([&] { room = RoomInCell(state); });
  TableLevel& level = OpenLevel(state);
  level.tableWidth = ComputeTableWidths(state.HtmlWork.text(), position, room, level.widths);
}

void ReadAlignment(HtmlToRtfState& state, TextView tag) {
  constexpr TextView kName = u"ALIGN";
  const std::int32_t found = FindText(1, tag, kName);
  if (found == 0) return;
  const TextView value = MidView(tag, found + static_cast<std::int32_t>(kName.size()), 11);
  if (Holds(value, u"CENTER")) OpenLevel(state).centred = true;
}

}  // namespace

std::int16_t ReadNumber(TextView tag, TextView name, std::int32_t from, std::int16_t otherwise) {
  const std::int32_t found = FindText(from, tag, name);
  if (found == 0) return otherwise;
  const std::int32_t start = found + static_cast<std::int32_t>(name.size()) + 1;
  const std::int32_t end = FirstEnd(tag, start, {u" ", u">"});
  if (end <= start) return otherwise;
  return ToInteger16(Without(ValueBetween(tag, start, end), u"\""));
}

void OpenTable(Apartment& apartment, TextView tag, std::int32_t position) {
  HtmlToRtfState& state = apartment.html_to_rtf;
  BreakInFront(state);
  Attempt([&] { ++state.TableDepth; });
  Attempt([&] { BeginTable(state); });
  Attempt([&] { GrowStack(state); });
  Attempt([&] { ReadBorder(state, tag); });
  Attempt([&] { ReadPadding(state, tag); });
  Attempt([&] { ReadSpacing(state, tag); });
  Attempt([&] { ReadWidths(state, position); });
  Attempt([&] { ReadAlignment(state, tag); });
  Attempt([&] { ParseTableBorders(apartment, tag); });
}

void CloseTable(Apartment& apartment) {
  HtmlToRtfState& state = apartment.html_to_rtf;
  state.PendingPara = false;
  state.TextInTable = false;
  if (state.TableDepth >= 1 && OpenLevel(state).cellOpen) CloseCell(state);
  if (state.TableDepth >= 1 && OpenLevel(state).rowOpen) CloseRow(apartment, u"</TR>");
  state.TableDepth += -1;
  if (state.TableDepth == 0) {
    // What stands in no field named here stays for the next table.
    TableLevel& level = state.TableStack.At(1);
    level.tableWidth = 0;
    level.widths.clear();
    level.cellCount = 0;
    level.cellOpen = level.rowOpen = level.rowBrace = level.cellBrace = false;
    level.highlight = 0;
    level.padding = 1;
    Append(state, u"\\itap0\r\n\\pard");
    return;
  }
  state.TableStack.Resize(state.TableDepth);
}

}  // namespace quillary::HTMLRTFConverter

#include "html_finishing/cell_formats.h"

#include <algorithm>

namespace quillary::modTable {
namespace {

constexpr std::int32_t kFragmentRoom = 256;

bool Has(const Text& upper, TextView tag) { return upper.find(tag) != Text::npos; }

// Between two cells only the end of a row or of the table stops a format.
void FollowFormats(RtfToHtmlState& state, const Text& upper) {
  if (Has(upper, u"</TR>") || Has(upper, u"</TABLE>")) {
    state.BoldOn = false;
    state.ItalicOn = false;
    state.UnderlineOn = false;
  }
  if (Has(upper, u"<B>")) state.BoldOn = true;
  if (Has(upper, u"<I>")) state.ItalicOn = true;
  if (Has(upper, u"<U>")) state.UnderlineOn = true;
}

Text CollectFonts(const Text& upper) {
  Text fonts;
  std::size_t open = upper.find(u"<FONT");
  while (open != Text::npos) {
    const std::size_t close = upper.find(u'>', open);
    if (close == Text::npos) break;
    fonts.append(upper, open, close + 1 - open);
    open = upper.find(u"<FONT", close + 1);
  }
  return fonts;
}

// The text of a cell between its tags, with its upper-case copy.
struct CellText {
  Text inner;
  Text upper;

  explicit CellText(Text text) : inner(std::move(text)), upper(ToUpper(inner)) {}
  void PutInFront(TextView piece) {
    inner.insert(0, piece);
    upper.insert(0, ToUpper(piece));
  }
  void CloseIfOpen(TextView open, TextView close, TextView piece) {
    if (Has(upper, open) && !Has(upper, close)) inner += piece;
  }
};

void CarryInto(CellText& cell, RtfToHtmlState& state) {
  Text fonts = CollectFonts(cell.upper);
  if (fonts.empty()) {
    cell.PutInFront(state.CarriedFont);
  } else {
    state.CarriedFont = std::move(fonts);
  }
  if (Has(cell.upper, u"<B>")) state.BoldOn = true;
  if (Has(cell.upper, u"<I>")) state.ItalicOn = true;
  if (Has(cell.upper, u"<U>")) state.UnderlineOn = true;
  if (state.BoldOn && !Has(cell.upper, u"<B>")) cell.PutInFront(u"<b>");
  if (state.ItalicOn && !Has(cell.upper, u"<I>")) cell.PutInFront(u"<i>");
  if (state.UnderlineOn) cell.PutInFront(u"<u>");  // even where the cell has its own
  cell.CloseIfOpen(u"<B>", u"</B>", u"</b>");
  cell.CloseIfOpen(u"<I>", u"</I>", u"</i>");
  cell.CloseIfOpen(u"<U>", u"</U>", u"</u>");
  cell.CloseIfOpen(u"<FONT", u"</FONT>", u"</font>");
}

// A cell too short for both of its tags has no inner text; its last five
// characters count as the closing tag all the same.
Text BalanceCell(RtfToHtmlState& state, TextView fragment) {
  const TextView text = TrimView(fragment);
  const std::int32_t open_end = FindText(1, text, u">");
  Text inner;
  Attempt([&] { inner = Mid(text, open_end + 1, Length(text) - open_end - 5); });
  CellText cell(std::move(inner));
  CarryInto(cell, state);
  return Left(text, open_end) + cell.inner + Right(text, 5);
}

void CutIntoFragments(RtfToHtmlState& state, const Text& table) {
  const Text upper = ToUpper(table);
  const TextView text = table;
  std::size_t start = 0;
  for (std::size_t at = upper.find(u"<T"); at != Text::npos; at = upper.find(u"<T", at)) {
    const char16_t kind = at + 2 < upper.size() ? upper[at + 2] : u' ';
    if (kind != u'D' && kind != u'H') {
      ++at;
      continue;
    }
    if (at > start) AddCellFragment(state, text.substr(start, at - start), false);
    const std::size_t close = upper.find(kind == u'D' ? u"</TD>" : u"</TH>", at + 4);
    start = at;
    at = close == Text::npos ? upper.size() : close + 5;
    AddCellFragment(state, text.substr(start, at - start), true);
    start = at;
  }
  if (start < text.size()) AddCellFragment(state, text.substr(start), false);
}

}  // namespace

void ResetCellFragments(RtfToHtmlState& state) {
  state.CellFragments.Size(kFragmentRoom);
  state.CarriedFont.clear();
  state.BoldOn = false;
  state.ItalicOn = false;
  state.UnderlineOn = false;
}

void AddCellFragment(RtfToHtmlState& state, TextView text, bool is_cell) {
  List<CellFragment>& fragments = state.CellFragments;
  if (!fragments.sized()) fragments.Size(kFragmentRoom);
  const std::int32_t index = std::max(fragments.last_set(), 0) + 1;
  if (index > fragments.upper()) fragments.Grow(fragments.upper() + kFragmentRoom);
  fragments.Set(index, {Text(text), is_cell});
}

void BalanceFragment(RtfToHtmlState& state, std::int32_t index) {
  if (index < 1 || index > state.CellFragments.last_set()) return;
  const CellFragment& fragment = state.CellFragments[index];
  if (fragment.IsCell) {
    state.CellFragments.Set(index, {BalanceCell(state, fragment.Text), true});
  } else {
    FollowFormats(state, ToUpper(fragment.Text));
  }
}

Text BalanceCellFormatting(Apartment& apartment, TextView table) {
  RtfToHtmlState& state = apartment.rtf_to_html;
  ResetCellFragments(state);
  if (table.empty()) return {};
  CutIntoFragments(state, ReplaceAll(ReplaceAll(table, u"< ", u"<"), u" >", u">"));
  Text result;
  for (std::int32_t i = 1; i <= state.CellFragments.last_set(); ++i) {
    BalanceFragment(state, i);
    result += state.CellFragments[i].Text;
    if (result.size() > apartment.working_limit) throw LimitReached(LimitReached::Limit::Growth);
  }
  return result;
}

}  // namespace quillary::modTable

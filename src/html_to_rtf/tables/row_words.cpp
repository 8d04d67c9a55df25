#include "html_to_rtf/tables/row_words.h"

#include <algorithm>

#include "html_to_rtf/inline/tag_values.h"
#include "html_to_rtf/tables/table_markup.h"

namespace quillary::HTMLRTFConverter {
namespace {

constexpr int kTwipsOfPixel = 15;

// The border words of a table with borders, of its rows ("\\trbrdr") and of its cells ("\\clbrdr").
Text BordersOfTable(const TableLevel& level, TextView word) {
  const bool plain = level.borderBottom < 1;
  Text words;
  const auto append = [&](TextView edge, const Integer16& width) {
    words.append(word).append(edge).append(u"\\brdrs\\brdrw");
    words.append(plain ? u"10" : Decimal(width)).append(u" ");
  };
  append(u"t", level.borderTop);
  append(u"l", level.borderLeft);
  append(u"b", level.borderBottom);
  append(u"r", level.borderRight);
  return words + u"\r\n";
}

// Takes the next width off the list; one that is exhausted gives nought.
double TakeWidth(TextView& widths) {
  if (widths.empty()) return 0;
  const std::size_t space = widths.find(u' ');
  const TextView width = widths.substr(0, space);
  widths.remove_prefix(space == TextView::npos ? widths.size() : space + 1);
  return ToNumber(width);
}

// How many columns a cell takes.
std::int16_t ColumnsOf(TextView cell_tag, TextView stripped) {
  constexpr TextView kName = u"COLSPAN";
  const std::size_t found = cell_tag.find(kName);
  if (found == TextView::npos) return 1;
  TextView value = cell_tag.substr(std::min(found + kName.size() + 1, cell_tag.size()));
  value = value.substr(0, std::min(value.find(u' '), value.find(u'>')));
  return value.empty() ? std::int16_t{1} : ToInteger16(Without(value, stripped));
}

/// The cells of a row one after the other.
class CellWalk {
 public:
  /// `stripped` are characters that stand in a COLSPAN for nothing.
  CellWalk(const HtmlToRtfState& state, const TableLevel& level, TextView row, TextView stripped)
      : scale_(state.TableScale), widths_(level.widths), row_(row), stripped_(stripped) {
    GoTo(row.find(u"<TD"));
  }

  bool AtCell() const { return at_ != TextView::npos; }
  bool IsLast() const { return next_ == TextView::npos; }
  /// From after its "<" to its ">".
  TextView Tag() const { return tag_; }

  /// Adds the widths of its columns up.
  void AddWidths() {
    for (std::int16_t columns = ColumnsOf(tag_, stripped_); columns > 0; --columns)
      sum_ += TakeWidth(widths_);
  }
  /// The right edge in twips.
  std::int16_t Edge() const { return RoundNumberText(NumberText(sum_ * kTwipsOfPixel * scale_)); }

  void Next() { GoTo(next_); }

 private:
  void GoTo(std::size_t at) {
    at_ = at;
    if (at == TextView::npos) return;
    const TextView cell = ExtractCell(row_.substr(at));
    tag_ = cell.substr(1, cell.find(u'>', 1));
    next_ = row_.find(u"<TD", at + cell.size());
  }

  double scale_;
  TextView widths_;
  TextView row_;
  TextView stripped_;
  TextView tag_;
  std::size_t at_ = TextView::npos;
  std::size_t next_ = TextView::npos;
  double sum_ = 0;
};

TextView MergeWords(TextView cell_tag) {
  if (Holds(cell_tag, u"ROWSPAN")) return u"\\clvmgf";
  return Holds(cell_tag, u"ROWMERGE=TRUE") ? u"\\clvmrg" : u"";
}

template <class Shading>
Text CellWords(Apartment& apartment, TextView row, CellPlace place, TextView stripped, Shading&& shading) {
  const TableLevel& level = OpenLevel(apartment.html_to_rtf);
  Text words;
  place.first_cell = true;
  for (CellWalk cell(apartment.html_to_rtf, level, row, stripped); cell.AtCell(); place.first_cell = false) {
    place.last_cell = cell.IsLast();
    cell.AddWidths();
    words += level.hasBorder ? BordersOfTable(level, u"\\clbrdr") : CellBorders(apartment, cell.Tag(), place);
    words += shading(cell.Tag());
    words.append(u"\\cellx").append(Decimal(cell.Edge()));
    cell.Next();
  }
  return words;
}

}  // namespace

Text RowWords(const TableLevel& level) {
  Text words;
  if (level.hasBorder) words += BordersOfTable(level, u"\\trbrdr");
  const Text padding = Decimal(Integer16(level.padding * std::int64_t{10}));
  for (const TextView word : {u"\\trpaddb", u"\\trpaddt", u"\\trpaddl", u"\\trpaddr"})
    words.append(word).append(padding);
  return words + u"\\trpaddfb3\\trpaddft3\\trpaddfr3\\trpaddfl3";
}

Text RowAt(const HtmlToRtfState& state, std::int32_t position) {
  Text row = ToUpper(StripNestedTables(ExtractRow(MidView(state.HtmlWork.text(), position))));
  // The first table of the text has been taken for the one that holds it.
  const std::size_t table = row.find(u"<TABLE");
  const std::size_t end = table == Text::npos ? table : row.find(u"</TABLE", table);
  if (end != Text::npos) row.erase(table, end + 8 - table);
  return row;
}

CellPlace RowPlace(TextView tag) { return {false, false, Holds(tag, u"FIRST_ROW"), Holds(tag, u"LAST_ROW")}; }

Text OuterCells(Apartment& apartment, TextView row, CellPlace place, TextView shading) {
  return CellWords(apartment, row, place, u"\">", [&](TextView) { return shading; });
}

Text NestedCells(Apartment& apartment, TextView row, CellPlace place) {
  return CellWords(apartment, row, place, u"\">\\", MergeWords);
}

}  // namespace quillary::HTMLRTFConverter

#include "html_to_rtf/tables/table_widths.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "html_to_rtf/inline/tag_values.h"
#include "html_to_rtf/tables/table_markup.h"
#include "text/failure.h"
#include "text/limits.h"

namespace quillary::HTMLRTFConverter {
namespace {

Integer16 Truncated(double number) {
  if (!(std::abs(number) < 40000)) throw Failure(Failure::Kind::Overflow);
  return static_cast<std::int32_t>(number);
}

// The number in front of the percent sign, of the room.
double Percentage(TextView value, double room) {
  return ToNumber(value.substr(0, value.find(u'%'))) * room / 100;
}

// A WIDTH, which ends at a space or with the tag; empty if it has none of the names.
Text ReadWidth(TextView tag, std::size_t from, std::initializer_list<TextView> names) {
  for (const TextView name : names) {
    const std::size_t found = tag.find(name, from);
    if (found == TextView::npos) continue;
    const TextView value = tag.substr(found + name.size());
    return Without(value.substr(0, value.find(u' ')), u"\"'");
  }
  return {};
}

// The tag that a text begins with, in upper case and without its ">".
Text TagOf(TextView text) { return ToUpper(text.substr(0, text.find(u'>'))); }

std::int16_t ReadSpan(TextView tag) {
  constexpr TextView kName = u"COLSPAN";
  const std::size_t found = tag.find(kName);
  if (found == TextView::npos || found + kName.size() + 1 >= tag.size()) return 0;
  const TextView value = tag.substr(found + kName.size() + 1);
  const std::size_t end = std::min(value.find(u' '), value.size());
  return end == 0 ? std::int16_t{0} : ToInteger16(Without(value.substr(0, end), u"\">\\"));
}

/// The columns of one table. A width is a text: one that is the even share of the room, as a
/// text, counts as none.
class Columns {
 public:
  Columns(std::int16_t count, int nesting)
      : widths_(static_cast<std::size_t>(count), u"0"), nesting_(nesting) {}

  void ReadRow(TextView row, Integer16& room);
  /// Shares the rest of the room out.
  void Share(const Integer16& room);

  /// Gives the sum; 0 if a column is unknown.
  std::int16_t Write(const Integer16& room, Text& widths) const;

 private:
  struct Cell {
    TextView text;
    Text value;  // the width that it asks for
    bool has_value = false;
    std::size_t column = 0;  // from 0
    std::int16_t span = 0;
  };

  void ReadCell(Cell& cell, const Integer16& room);
  void ReadNestedTables(Cell& cell);
  void Spread(const Cell& cell, double width);
  void MergeRow(Integer16& room);
  Text& RowWidth(std::size_t column);
  static double Number(const Text& width) { return ToNumber(width); }

  std::vector<Text> widths_;
  std::vector<Text> row_;  // those of the row at hand
  Text share_;             // the even share, as it was for the last row
  Text zero_share_ = Text(u"0");
  int nesting_;
};

std::int16_t Compute(TextView text, Integer16& room, Text& widths, int nesting) {
  if (nesting > limits::kTableNesting) throw LimitReached(LimitReached::Limit::Nesting);
  const TextView table = text.substr(0, TableLength(text));
  Text width = ReadWidth(TagOf(table), 5, {u"WIDTH=", u"WIDTH =", u"WIDTH:"});
  width = ReplaceAll(ToUpper(width), u"PX", u"");
  if (Holds(width, u"%")) {
    room = Truncated(Percentage(width, room));
  } else if (!width.empty()) {
    room = RoundNumberText(width);
  }
  const std::int16_t count = CountColumns(StripNestedTables(table));
  if (count < 1) throw Failure(Failure::Kind::Subscript);
  Columns columns(count, nesting);
  for (MarkupPlace tag = NextMarkup(table, 1); tag.kind != TableMarkup::None;) {
    std::size_t next = tag.at + 1;
    if (tag.kind == TableMarkup::Table) {
      next = tag.at + TableLength(table.substr(tag.at));
    } else if (tag.kind == TableMarkup::Row) {
      const TextView row = ExtractRow(table.substr(tag.at));
      columns.ReadRow(row, room);
      next = tag.at + std::max<std::size_t>(row.size(), 1);
    }
    tag = NextMarkup(table, next);
  }
  columns.Share(room);
  return columns.Write(room, widths);
}

Text& Columns::RowWidth(std::size_t column) {
  if (column >= row_.size()) throw Failure(Failure::Kind::Subscript);
  return row_[column];
}

void Columns::ReadRow(TextView row, Integer16& room) {
  share_ = Decimal(Truncated(static_cast<double>(room) / static_cast<double>(widths_.size())));
  row_.assign(widths_.size(), share_);
  std::size_t column = 0;
  for (MarkupPlace tag = NextMarkup(row, 0); tag.kind != TableMarkup::None;) {
    if (tag.kind != TableMarkup::Cell) {
      tag = NextMarkup(row, tag.at + 1);
      continue;
    }
    Cell cell;
    cell.text = ExtractCell(row.substr(tag.at));
    cell.column = column;
    ReadCell(cell, room);
    ReadNestedTables(cell);
    column += static_cast<std::size_t>(std::max<std::int16_t>(cell.span, 1));
    tag = NextMarkup(row, tag.at + std::max<std::size_t>(cell.text.size(), 1));
  }
  MergeRow(room);
}

void Columns::ReadCell(Cell& cell, const Integer16& room) {
  const Text tag = TagOf(cell.text);
  cell.span = ReadSpan(tag);
  cell.value = ReplaceAll(Trim(ReadWidth(tag, 0, {u"WIDTH=", u"WIDTH ="})), u"PX", u"");
  if (Holds(cell.value, u"%")) cell.value = NumberText(Percentage(cell.value, room));
  cell.has_value = IsNumeric(cell.value) && Number(cell.value) > 0;
  if (!cell.has_value) return;
  if (cell.span > 0) {
    Spread(cell, Number(cell.value));
  } else {
    RowWidth(cell.column) = cell.value;
  }
}

// The columns of a cell get the same width each.
void Columns::Spread(const Cell& cell, double width) {
  const Text each = Decimal(static_cast<std::int64_t>(width / cell.span));
  for (std::int16_t i = 0; i < cell.span; ++i) RowWidth(cell.column + static_cast<std::size_t>(i)) = each;
}

// A table that needs more than its cell has widens the cell.
void Columns::ReadNestedTables(Cell& cell) {
  for (MarkupPlace tag = NextMarkup(cell.text, 1); tag.kind != TableMarkup::None;) {
    if (tag.kind != TableMarkup::Table) {
      tag = NextMarkup(cell.text, tag.at + 1);
      continue;
    }
    const double in_row = Number(RowWidth(cell.column));  // which fails beyond the columns of the first row
    const double own = std::max(in_row, Number(widths_[cell.column]));
    Integer16 needed = Truncated(cell.span > 0 ? own * cell.span : own);
    Text unused;
    const std::int16_t result = Compute(cell.text.substr(tag.at), needed, unused, nesting_ + 1);
    if (!cell.has_value || needed > Number(cell.value)) {
      if (cell.span > 0) {
        Spread(cell, needed);
        cell.value = Decimal(needed);
      } else {
        cell.value = RowWidth(cell.column) = Decimal(result);
      }
      cell.has_value = true;
    }
    tag = NextMarkup(cell.text, tag.at + TableLength(cell.text.substr(tag.at)));
  }
}

void Columns::MergeRow(Integer16& room) {
  const bool asked =
      std::any_of(row_.begin(), row_.end(), [&](const Text& width) { return width != share_; });
  if (!asked) return;
  double sum = 0;
  for (std::size_t i = 0; i < widths_.size(); ++i) {
    // A column that has none has "0".
    if (row_[i] != share_ && Number(row_[i]) > std::max(Number(widths_[i]), 0.0)) widths_[i] = row_[i];
    sum += Number(widths_[i]);
  }
  if (sum > room) room = Truncated(sum);
}

void Columns::Share(const Integer16& room) {
  if (room < 1) return;
  double rest = room;
  for (const Text& width : widths_) rest -= Number(width);
  const auto zeros =
      std::count_if(widths_.begin(), widths_.end(), [](const Text& width) { return Number(width) == 0; });
  if (zeros > 0) {
    zero_share_ =
        rest > 0 ? Decimal(static_cast<std::int64_t>(std::floor(rest / static_cast<double>(zeros) + 0.5)))
                 : u"10";
    return;
  }
  const auto even = std::count(widths_.begin(), widths_.end(), share_);
  if (even == 0) return;
  const auto part = static_cast<std::int64_t>(rest / static_cast<double>(even));
  const Text grown = NumberText(Number(share_) + static_cast<double>(part));
  std::replace(widths_.begin(), widths_.end(), Text(share_), grown);
}

std::int16_t Columns::Write(const Integer16& room, Text& widths) const {
  Text written;
  double sum = 0;
  bool unknown = false;
  for (const Text& width : widths_) {
    if (!written.empty()) written += u' ';
    const bool has_none = room < 1 ? Number(width) < 1 : Number(width) == 0;
    const Text& shown = room >= 1 && has_none ? zero_share_ : width;
    if (room < 1 && has_none) {
      unknown = true;
      written += u"-1";
    } else {
      written += shown;
      sum += Number(shown);
    }
  }
  const std::int16_t result = unknown ? std::int16_t{0} : std::int16_t{Truncated(sum)};
  widths = std::move(written);
  return result;
}

}  // namespace

std::int16_t ComputeTableWidths(TextView text, std::int32_t position, Integer16& room, Text& widths) {
  return Compute(MidView(text, position), room, widths, 1);
}

std::int16_t SumOfColumns(TextView widths, int skipped, int last) {
  // Number of units up to the end of a column; npos after the last one.
  const auto end_of = [&](int column) {
    std::size_t end = widths.find(u' ');
    for (; column > 1 && end != TextView::npos; --column) end = widths.find(u' ', end + 1);
    return end;
  };
  std::size_t start = 0;
  if (skipped > 0) {
    start = end_of(skipped);
    if (start++ == TextView::npos) return 0;
  }
  const std::size_t end = last > 0 ? end_of(last) : TextView::npos;
  double sum = 0;
  for (TextView rest = widths.substr(0, end).substr(std::min(start, std::min(end, widths.size())));
       !rest.empty();) {
    const std::size_t space = std::min(rest.find(u' '), rest.size());
    if (space > 0) sum += ToNumber(rest.substr(0, space));
    rest.remove_prefix(std::min(space + 1, rest.size()));
  }
  return Truncated(sum);
}

}  // namespace quillary::HTMLRTFConverter

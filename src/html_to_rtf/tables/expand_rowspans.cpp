// The columns are worked through from left to right, since a cell that is put into a row shifts
// all later columns of it. What the stage would search for in the page over and over (rows,
// their cells, the column of a ROWSPAN) is found once and kept up to date; the cells are
// written into the page at the end.
#include <algorithm>
#include <exception>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include "html_to_rtf/blocks/element_pairs.h"
#include "html_to_rtf/tables/prefilters.h"
#include "html_to_rtf/tables/table_markup.h"
#include "text/failure.h"
#include "text/limits.h"

namespace quillary::HTMLRTFConverter {
namespace {

constexpr TextView kMergedCell = u"<TD ROWMERGE=TRUE></TD>";
constexpr TextView kRowspan = u"ROWSPAN";
constexpr std::size_t kNone = static_cast<std::size_t>(-1);

struct Cell {
  std::size_t start = 0;  // offsets in the page as it came
  std::size_t end = 0;
  std::int32_t columns = 1;
  bool inserted = false;
  bool endless = false;                 // a table in it has no end, so that nothing can step over it
  std::vector<std::size_t> hits;        // the ROWSPANs in it
  std::vector<std::size_t> later_hits;  // those between it and the next cell
};

struct Row {
  std::size_t start = 0;
  bool read = false;
  std::size_t end = 0;
  std::size_t next = kNone;  // the first row after its end
  std::vector<Cell> cells;
  std::vector<std::size_t> later_hits;  // the ROWSPANs after its end that still count from it
};

/// A ROWSPAN in the page.
struct Hit {
  std::size_t at = 0;
  std::size_t row = 0;
  std::size_t table_end = 0;
  std::optional<std::int16_t> span;  // none where the value is empty and there is none in front
  std::int32_t column = 0;           // 0 in front of the first cell
};

/// How many cells have been put into a range of rows.
class InsertedCells {
 public:
  explicit InsertedCells(std::size_t rows) : sums_(rows + 1) {}
  void Add(std::size_t row) {
    for (std::size_t i = row + 1; i < sums_.size(); i += i & (~i + 1)) ++sums_[i];
  }
  std::int64_t From(std::size_t row, std::size_t end) const { return Before(end) - Before(row); }

 private:
  std::int64_t Before(std::size_t row) const {
    std::int64_t sum = 0;
    for (std::size_t i = row; i > 0; i &= i - 1) sum += sums_[i];
    return sum;
  }
  std::vector<std::int64_t> sums_;
};

/// A cell counts for two rows, because a nested table stands in a row that has no cell of its
/// own in front of it. What is put into one row then belongs to both.
struct CellOfTwoRows {};

class RowspanExpansion {
 public:
  explicit RowspanExpansion(Text& page)
      : page_(page), upper_(ToUpper(page)), tags_(AllMarkup(page)), elements_(page, u"TABLE") {
    for (const MarkupPlace& tag : tags_) {
      if (tag.kind == TableMarkup::Row) rows_.push_back({tag.at, false, 0, kNone, {}, {}});
    }
    inserted_ = InsertedCells(rows_.size());
  }

  void Run() {
    FindHits();
    try {
      for (std::int32_t column = 1; column != 0; column = NextColumn(column)) Work(column);
    } catch (const Failure&) {
      Write();
      throw;
    }
    Write();
    if (failure_) std::rethrow_exception(failure_);
  }

 private:
  // All ROWSPANs up to the first that ends the stage: it stands in no row, or something about
  // it fails.
  void FindHits() {
    struct Level {
      std::size_t row;
      std::size_t table;
    };
    std::vector<Level> levels;  // what was open around each open table
    std::size_t row = kNone;
    std::size_t table = kNone;
    std::size_t tag = 0;
    std::size_t rows = 0;
    std::size_t tables = 0;
    for (std::size_t at = upper_.find(kRowspan); at != Text::npos; at = upper_.find(kRowspan, at + 1)) {
      for (; tag < tags_.size() && tags_[tag].at < at; ++tag) {
        switch (tags_[tag].kind) {
          case TableMarkup::Row:
            row = rows++;
            break;
          case TableMarkup::Table:
            levels.push_back({row, table});
            table = tables++;
            break;
          case TableMarkup::TableEnd:
            ++tables;
            row = levels.empty() ? kNone : levels.back().row;
            table = levels.empty() ? kNone : levels.back().table;
            if (!levels.empty()) levels.pop_back();
            break;
          default:
            break;
        }
      }
      try {
        if (!AddHit(at, row, table)) break;
      } catch (const Failure&) {
        failure_ = std::current_exception();
        break;
      }
      complete_ = upper_.find(kRowspan, at + 1) == Text::npos;
    }
  }

  bool AddHit(std::size_t at, std::size_t row, std::size_t table) {
    Hit hit{at, row, 0, NumberAt(at), 0};
    if (!hit.span && !hits_.empty()) hit.span = hits_.back().span;
    if (row == kNone) return false;
    hit.table_end = TableEnd(table);
    CountColumns(Read(row), hit);
    waiting_.emplace(hit.column, hits_.size());
    hits_.push_back(hit);
    return true;
  }

  // The column of the cell that a ROWSPAN stands in, counted from the start of its row; after
  // the end of that, from cell to cell whatever they belong to.
  void CountColumns(Row& row, Hit& hit) {
    Cell* own = nullptr;
    for (Cell& cell : row.cells) {
      if (cell.start >= hit.at) break;
      if (cell.endless) throw Failure(Failure::Kind::Argument);
      hit.column += cell.columns;
      own = &cell;
    }
    if (hit.at < row.end) {
      if (own != nullptr) (hit.at < own->end ? own->hits : own->later_hits).push_back(hits_.size());
      return;
    }
    row.later_hits.push_back(hits_.size());
    std::size_t at = row.cells.empty() ? row.start : row.cells.back().end;
    for (at = NextCell(at); at < hit.at; at = NextCell(at + ExtractCell(TextView(page_).substr(at)).size())) {
      hit.column += ColumnsOf(at);
      if (at > NextRow(row.end)) throw CellOfTwoRows();
    }
  }

  std::size_t NextRow(std::size_t from) const {
    const auto next = std::lower_bound(rows_.begin(), rows_.end(), from,
                                       [](const Row& row, std::size_t at) { return row.start < at; });
    return next == rows_.end() ? kNone : next->start;
  }

  std::size_t NextCell(std::size_t from) const {
    MarkupPlace tag = NextMarkup(page_, from);
    while (tag.kind != TableMarkup::None && tag.kind != TableMarkup::Cell)
      tag = NextMarkup(page_, tag.at + 1);
    return tag.kind == TableMarkup::Cell ? tag.at : kNone;
  }

  // The number that is given to the name at that offset; nothing where there is none.
  std::optional<std::int16_t> NumberAt(std::size_t at) const {
    const std::size_t end = upper_.find(u'>', at);
    if (end == Text::npos) throw Failure(Failure::Kind::Argument);
    const TextView tag = TextView(upper_).substr(at, end - at);
    const std::size_t equals = tag.find(u'=');
    if (equals == TextView::npos) return std::nullopt;
    const TextView value = tag.substr(equals + 1);
    const Text number = ReplaceAll(value.substr(0, value.find(u' ')), u"\"", u"");
    if (number.empty()) return std::nullopt;
    return RoundNumberText(number);
  }

  std::size_t TableEnd(std::size_t table) const {
    const std::size_t end = table == kNone ? ElementPairs::npos : elements_.EndOf(table);
    if (end == ElementPairs::npos) throw Failure(Failure::Kind::Argument);
    return page_.find(u'>', elements_.tags()[end].at) + 1;
  }

  // The row with its cells, found when it is asked for.
  Row& Read(std::size_t number) {
    Row& row = rows_[number];
    if (std::exchange(row.read, true)) return row;
    const TextView text = ExtractRow(TextView(page_).substr(row.start));
    bool in_table = false;
    for (MarkupPlace tag = NextMarkup(text, 1); tag.kind != TableMarkup::None;) {
      if (tag.kind != TableMarkup::Cell) {
        in_table = in_table || tag.kind == TableMarkup::Table;
        tag = NextMarkup(text, tag.at + 1);
        continue;
      }
      if (in_table) throw CellOfTwoRows();
      Cell cell;
      cell.start = row.start + tag.at;
      cell.columns = ColumnsOf(cell.start);
      TextView cell_text = text.substr(tag.at);
      cell.endless = !Attempt([&] { cell_text = ExtractCell(cell_text); });
      cell.end = cell.start + cell_text.size();
      row.cells.push_back(cell);
      tag = NextMarkup(text, tag.at + std::max<std::size_t>(cell_text.size(), 1));
    }
    row.end = row.start + text.size();
    const auto after_row =
        std::lower_bound(rows_.begin(), rows_.end(), row.end,
                         [](const Row& other, std::size_t at) { return other.start < at; });
    if (after_row != rows_.end()) row.next = static_cast<std::size_t>(after_row - rows_.begin());
    return row;
  }

  std::int32_t ColumnsOf(std::size_t cell) const {
    const std::size_t end = upper_.find(u'>', cell);
    if (end == Text::npos) throw Failure(Failure::Kind::Argument);
    const std::size_t span = upper_.find(u"COLSPAN", cell);
    return span < end ? NumberAt(span).value_or(1) : std::int16_t{1};
  }

  // The next column with a ROWSPAN in it, 0 if that was the last pass.
  std::int32_t NextColumn(std::int32_t column) const {
    if (!complete_) return 0;
    const auto next = waiting_.lower_bound({column + 1, 0});
    return next == waiting_.end() ? 0 : next->first;
  }

  // One pass: the ROWSPANs that stand in that column when their turn in the page comes.
  void Work(std::int32_t column) {
    for (auto hit = waiting_.lower_bound({column, 0}); hit != waiting_.end() && hit->first == column;) {
      const std::size_t number = hit->second;
      Expand(hits_[number], column);
      hit = waiting_.lower_bound({column, number + 1});
    }
  }

  void Expand(const Hit& hit, std::int32_t column) {
    // The span of an empty value in front of all others is that of the last one, a pass before.
    const std::int16_t span = hit.span      ? *hit.span
                              : column == 1 ? std::int16_t{0}
                                            : hits_.back().span.value_or(0);
    std::size_t row = hit.row;
    for (std::int64_t below = 1; below < span; ++below) {
      row = Read(row).next;
      if (row == kNone || Read(row).cells.empty()) return;
      // The end of the table is where it was before this ROWSPAN had put in any cell.
      if (UnitsToEnd(row, hit.table_end) <= (below - 1) * static_cast<std::int64_t>(kMergedCell.size()))
        return;
      Insert(row, static_cast<std::size_t>(column) - 1);
    }
  }

  // From the first cell of a row to the end of the table, with all cells that have been put in.
  std::int64_t UnitsToEnd(std::size_t row, std::size_t table_end) const {
    const auto end = std::lower_bound(rows_.begin(), rows_.end(), table_end,
                                      [](const Row& other, std::size_t at) { return other.start < at; });
    const auto rows = static_cast<std::size_t>(end - rows_.begin());
    const std::int64_t units =
        static_cast<std::int64_t>(table_end) - static_cast<std::int64_t>(FirstCell(row));
    if (rows <= row) return units;
    return units + inserted_.From(row, rows) * static_cast<std::int64_t>(kMergedCell.size());
  }

  std::size_t FirstCell(std::size_t row) const {
    const auto& cells = rows_[row].cells;
    return std::find_if(cells.begin(), cells.end(), [](const Cell& cell) { return !cell.inserted; })->start;
  }

  // A row with too few cells gets the new one after its last.
  void Insert(std::size_t number, std::size_t place) {
    std::vector<Cell>& cells = rows_[number].cells;
    place = std::min(place, cells.size());
    const auto endless = [](const Cell& cell) { return cell.endless; };
    if (std::any_of(cells.begin(), cells.begin() + static_cast<std::ptrdiff_t>(place), endless)) {
      throw Failure(Failure::Kind::Argument);
    }
    cells.insert(cells.begin() + static_cast<std::ptrdiff_t>(place), Cell{0, 0, 1, true, false, {}, {}});
    inserted_.Add(number);
    for (std::size_t i = place + 1; i < cells.size(); ++i) {
      Shift(cells[i].hits);
      Shift(cells[i].later_hits);
    }
    // The new cell stands right after the one in front, so before what follows that.
    while (place > 0 && cells[place - 1].inserted) --place;
    if (place > 0) Shift(cells[place - 1].later_hits);
    Shift(rows_[number].later_hits);
  }

  void Shift(const std::vector<std::size_t>& hits) {
    for (const std::size_t hit : hits) {
      waiting_.erase({hits_[hit].column, hit});
      waiting_.emplace(++hits_[hit].column, hit);
    }
  }

  void Write() {
    std::vector<std::size_t> places;
    for (std::size_t row = 0; row < rows_.size(); ++row) {
      if (rows_[row].cells.empty()) continue;
      std::size_t place = FirstCell(row);
      for (const Cell& cell : rows_[row].cells) {
        if (cell.inserted) {
          places.push_back(place);
        } else {
          place = cell.end;
        }
      }
    }
    if (places.empty()) return;
    std::sort(places.begin(), places.end());
    Text written;
    std::size_t done = 0;
    for (const std::size_t place : places) {
      written.append(page_, done, place - done).append(kMergedCell);
      done = place;
    }
    page_ = written.append(page_, done);
  }

  Text& page_;
  Text upper_;
  std::vector<MarkupPlace> tags_;
  ElementPairs elements_;
  std::vector<Row> rows_;
  std::vector<Hit> hits_;
  std::set<std::pair<std::int32_t, std::size_t>> waiting_;  // column and number of each ROWSPAN
  InsertedCells inserted_{0};
  bool complete_ = false;  // no ROWSPAN ends the stage in its first pass
  std::exception_ptr failure_;
};

// The value of "NAME=..." in a tag that begins with the name.
Text ValueIn(TextView tag) {
  const std::size_t equals = tag.find(u'=');
  if (equals == TextView::npos) return {};
  const TextView value = tag.substr(equals + 1);
  return ReplaceAll(value.substr(0, value.find(u' ')), u"\"", u"");
}

TextView TagFrom(TextView page, std::int32_t position) {
  return MidView(page, position, FindText(position, page, u">") - position);
}

std::int32_t ColumnsOfCell(TextView page, std::int32_t position) {
  const Text tag = ToUpper(TagFrom(page, position));
  const std::int32_t span = FindText(1, tag, u"COLSPAN");
  const Text value = span == 0 ? Text() : ValueIn(MidView(tag, span));
  return value.empty() ? 1 : RoundNumberText(value);
}

std::int32_t FindTag(std::int32_t start, TextView page, TextView name) {
  return FindText(start, page, name, Compare::IgnoreCase);
}

// Puts a cell into the row after so many others. Gives where it stands now.
std::int32_t InsertCell(Text& page, std::int32_t row, std::int32_t cells) {
  const std::int32_t row_end = row + Length(Text(ExtractRow(MidView(page, row))));
  std::int32_t place = FindTag(row, page, u"<TD");
  for (; cells > 0; --cells) {
    const std::int32_t cell = FindTag(place, page, u"<TD");
    if (cell == 0 || cell >= row_end) break;
    place = cell + Length(Text(ExtractCell(MidView(page, cell))));
  }
  page.insert(static_cast<std::size_t>(place) - 1, kMergedCell);
  return place;
}

// The column of a ROWSPAN, counted from cell to cell from the start of its row.
std::int32_t ColumnOfHit(TextView page, std::int32_t row, std::int32_t hit) {
  std::int32_t column = 0;
  for (std::int32_t cell = FindTag(row, page, u"<TD"); cell > 0 && cell < hit;
       cell = FindTag(cell + Length(Text(ExtractCell(MidView(page, cell)))), page, u"<TD")) {
    column += ColumnsOfCell(page, cell);
  }
  return column;
}

// The first column after this one that a ROWSPAN stands in, 0 if there is none.
std::int32_t NextColumnOfHits(TextView page, std::int32_t column) {
  std::int32_t next = 0;
  for (std::int32_t hit = FindTag(1, page, kRowspan); hit > 0; hit = FindTag(hit + 1, page, kRowspan)) {
    const std::int32_t own = ColumnOfHit(page, FindLevelStart(MidView(page, 1, hit), u"<TR"), hit);
    if (own > column && (next == 0 || own < next)) next = own;
  }
  return next;
}

}  // namespace

void ExpandRowspansOneByOne(Text& page) {
  std::int16_t span = 0;
  int inserted = 0;
  for (std::int32_t column = 1; column > 0; column = NextColumnOfHits(page, column)) {
    bool last = true;
    for (std::int32_t hit = FindTag(1, page, kRowspan); hit > 0; hit = FindTag(hit + 1, page, kRowspan)) {
      const Text value = ValueIn(TagFrom(page, hit));
      if (!value.empty()) span = RoundNumberText(value);
      std::int32_t row = FindLevelStart(MidView(page, 1, hit), u"<TR");
      const std::int32_t table = FindLevelStart(MidView(page, 1, hit), u"<TABLE");
      if (row == 0) return;
      const std::int32_t table_end = table + static_cast<std::int32_t>(TableLength(MidView(page, table)));
      const std::int32_t own_column = ColumnOfHit(page, row, hit);
      if (own_column > column) last = false;
      for (std::int16_t below = 1; own_column == column && below < span; ++below) {
        row = FindTag(row + Length(Text(ExtractRow(MidView(page, row)))), page, u"<TR");
        if (row == 0) break;
        const std::int32_t cell = FindTag(row, page, u"<TD");
        const std::int32_t row_end = row + Length(Text(ExtractRow(MidView(page, row))));
        if (cell == 0 || cell >= row_end || cell >= table_end) break;
        if (++inserted > limits::kSharedMergedCells) throw LimitReached(LimitReached::Limit::Growth);
        if (InsertCell(page, row, column - 1) <= hit) hit += static_cast<std::int32_t>(kMergedCell.size());
      }
    }
    if (last) return;
  }
}

void ExpandRowspans(Text& page) {
  if (!Holds(page, kRowspan, Compare::IgnoreCase)) return;
  try {
    RowspanExpansion(page).Run();
  } catch (const CellOfTwoRows&) {
    ExpandRowspansOneByOne(page);  // nothing has been written
  }
}

}  // namespace quillary::HTMLRTFConverter

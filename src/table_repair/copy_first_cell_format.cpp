#include "table_repair/copy_first_cell_format.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

#include "table_repair/table_rows.h"
#include "text/integer16.h"
#include "text/search.h"

namespace quillary::RepairHTMLTable {
namespace {

// A space counts as text here, a line end does not.
class TextOutsideTags {
 public:
  bool Takes(char16_t unit) {
    ++index_;
    if (unit == u'<') {
      in_tag_ = true;
    } else if (unit == u'>') {
      in_tag_ = false;
    } else {
      return unit >= 32 && !in_tag_;
    }
    return false;
  }

 private:
  Integer16 index_;  // overflows in a cell of more than 32,767 characters
  bool in_tag_ = false;
};

Text WithoutTags(TextView cell) {
  Text result;
  TextOutsideTags outside;
  for (const char16_t unit : cell) {
    if (outside.Takes(unit)) result += unit;
  }
  return result;
}

TextView OpeningFormat(TextView cell) {
  TextOutsideTags outside;
  std::size_t length = 0;
  while (length < cell.size() && !outside.Takes(cell[length])) ++length;
  return cell.substr(0, length);
}

std::size_t CountTags(TextView text, TextView tag) {
  const Finder finder(tag, Compare::IgnoreCase);
  std::size_t count = 0;
  for (std::size_t at = finder.Next(text, 0); at != Finder::npos; at = finder.Next(text, at + 1)) ++count;
  return count;
}

// The formatting of the cells of one row. Every cell is replaced wherever its
// text stands in the row, be it there from the start or for a replacement.
class RowFormat {
 public:
  RowFormat(TextView table, const TableRow& row, TextView format, std::size_t limit)
      : row_(row), format_(format), limit_(limit) {
    for (std::size_t i = 0; i + 1 < row.cells.size(); i += 2) {
      const Tag& open = row.cells[i];
      const Tag& close = row.cells[i + 1];
      cells_.push_back(table.substr(open.begin, close.end - open.begin));
    }
  }

  Text Apply() { return StandsCellByCell() ? CellByCell() : InWholeRow(); }

 private:
  // Whether the text of a cell can stand nowhere but in place of a cell, because
  // each has one opening and one closing tag and so has all that is put there.
  bool StandsCellByCell() const {
    const std::vector<Tag>& tags = row_.cells;
    if (tags.empty() || tags.size() % 2 != 0 || tags[0].begin < row_.begin) return false;
    for (std::size_t i = 0; i < tags.size(); ++i) {
      if (tags[i].name != (i % 2 == 0 ? u"TD" : u"/TD")) return false;
    }
    if (CountTags(row_.text, u"<td") != cells_.size() || CountTags(row_.text, u"</td") != cells_.size())
      return false;
    const std::size_t bracket = format_.find_last_of(u"<>");
    if (bracket != TextView::npos && format_[bracket] == u'<') return false;
    return CountTags(format_, u"<td") == 0 && CountTags(format_, u"</td") == 0;
  }

  Text Formatted(std::size_t cell) const {
    const Tag& open = row_.cells[2 * cell];
    const Tag& close = row_.cells[2 * cell + 1];
    const TextView text = cells_[cell];
    Text changed(text.substr(0, open.end - open.begin));
    changed.append(format_).append(WithoutTags(row_.Between(open, close)));
    return changed.append(text.substr(close.begin - open.begin));
  }

  void CheckLimit(std::size_t units) const {
    if (units > limit_) throw LimitReached(LimitReached::Limit::Growth);
  }

  Text InWholeRow() const {
    Text text(row_.text);
    for (std::size_t i = 0; i < cells_.size(); ++i) {
      ReplaceIn(text, cells_[i], Formatted(i));
      CheckLimit(text.size());
    }
    return text;
  }

  Text CellByCell() const {
    std::vector<TextView> now = cells_;
    std::vector<Text> formatted(cells_.size());
    std::unordered_map<TextView, std::vector<std::size_t>> cells_by_text;
    for (std::size_t i = 0; i < cells_.size(); ++i) cells_by_text[cells_[i]].push_back(i);
    std::size_t units = row_.text.size();
    for (std::size_t i = 0; i < cells_.size(); ++i) {
      formatted[i] = Formatted(i);
      std::vector<std::size_t>& same = cells_by_text[cells_[i]];
      // What has the format already stays as it is, be it by an earlier cell.
      if (formatted[i] != cells_[i]) {
        for (const std::size_t cell : same) now[cell] = formatted[i];
        units = units + same.size() * formatted[i].size() - same.size() * cells_[i].size();
        same.clear();
      }
      CheckLimit(units);
    }
    Text text;
    text.reserve(units);
    std::size_t from = 0;
    for (std::size_t i = 0; i < cells_.size(); ++i) {
      const std::size_t at = row_.cells[2 * i].begin - row_.begin;
      text.append(row_.text.substr(from, at - from)).append(now[i]);
      from = at + cells_[i].size();
    }
    return text.append(row_.text.substr(from));
  }

  const TableRow& row_;
  TextView format_;
  std::size_t limit_;
  std::vector<TextView> cells_;
};

}  // namespace

Text CopyFirstCellFormat(TextView table, std::size_t limit) {
  Text format;
  bool stopped = false;
  const auto write = [&](const TableRow& row, Text& output) {
    if (stopped) return;
    const std::vector<Tag>& cells = row.cells;
    if (format.empty() && cells.size() > 1) {
      format = OpeningFormat(TrimView(row.Between(cells[0], cells[1])));
      stopped = format.empty();
      if (stopped) return;
    }
    const std::size_t room = limit - std::min(limit, output.size());
    output += RowFormat(table, row, format, room).Apply();
  };
  Text result(table);
  Attempt([&] {
    Text changed = RewriteRows(table, limit, write);
    if (!stopped) result = std::move(changed);
  });
  return result;
}

}  // namespace quillary::RepairHTMLTable

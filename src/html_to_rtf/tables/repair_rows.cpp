#include <algorithm>
#include <array>
#include <iterator>
#include <list>
#include <vector>

#include "html_to_rtf/blocks/element_pairs.h"
#include "html_to_rtf/tables/prefilters.h"
#include "html_to_rtf/tables/table_markup.h"
#include "text/failure.h"

namespace quillary::HTMLRTFConverter {
namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

/// An end tag that is to be supplied: whose, and the tags in front of which the element ends.
struct EndToSupply {
  TableMarkup start;
  TableMarkup end;
  TextView text;
  std::vector<TableMarkup> followers;
};

// Where an element is followed by a tag that ends it, and neither its own end tag nor a table
// stands in front of that, its end tag is put there.
void SupplyEnds(Text& page, const EndToSupply& supply) {
  const std::vector<MarkupPlace> tags = AllMarkup(page);
  std::array<std::size_t, 7> next{};  // the next tag of each kind, seen from the end of the page
  next.fill(kNone);
  const auto after = [&](TableMarkup kind) { return next[static_cast<std::size_t>(kind)]; };
  std::vector<std::size_t> places;
  for (std::size_t i = tags.size(); i-- > 0;) {
    if (tags[i].kind == supply.start) {
      std::size_t follower = kNone;
      for (const TableMarkup kind : supply.followers) follower = std::min(follower, after(kind));
      if (follower != kNone && after(supply.end) > follower && after(TableMarkup::Table) > follower) {
        places.push_back(tags[follower].at);
      }
    }
    next[static_cast<std::size_t>(tags[i].kind)] = i;
  }
  if (places.empty()) return;
  Text supplied;
  std::size_t done = 0;
  for (std::size_t i = places.size(); i-- > 0;) {
    supplied.append(page, done, places[i] - done).append(supply.text);
    done = places[i];
  }
  page = supplied.append(page, done);
}

/// Marks the first and the last row of each table. Marks and end tags that are supplied are
/// noted, and written in one pass at the end.
class RowMarking {
 public:
  explicit RowMarking(Text& page) : page_(page), elements_(page, u"TABLE") {
    for (const MarkupPlace& tag : AllMarkup(page)) {
      const bool is_table = tag.kind == TableMarkup::Table || tag.kind == TableMarkup::TableEnd;
      tags_.push_back({tag, originals_.size(), is_table ? tables_.size() : kNone, {}, false});
      originals_.push_back(std::prev(tags_.end()));
      if (is_table) tables_.push_back(originals_.back());
    }
    FindNeighbours();
  }

  void Run() {
    try {
      MarkTables();
    } catch (const Failure&) {
      Write();
      throw;
    }
    Write();
  }

 private:
  struct Tag {
    MarkupPlace place;
    std::size_t index;  // among the tags of the page; of a supplied one, that of the tag after it
    std::size_t table;  // among the tags of tables
    Text marks;         // after the name
    bool supplied;
  };
  using TagList = std::list<Tag>;
  using Place = TagList::iterator;

  // From each tag on, and from the end of the page on: the next row and the next end of a table,
  // and the last row in front.
  void FindNeighbours() {
    const std::size_t count = originals_.size();
    next_row_.assign(count + 1, kNone);
    next_table_end_.assign(count + 1, kNone);
    last_row_.assign(count + 1, kNone);
    for (std::size_t i = count; i-- > 0;) {
      next_row_[i] = originals_[i]->place.kind == TableMarkup::Row ? i : next_row_[i + 1];
      next_table_end_[i] = originals_[i]->place.kind == TableMarkup::TableEnd ? i : next_table_end_[i + 1];
    }
    for (std::size_t i = 0; i < count; ++i) {
      last_row_[i + 1] = originals_[i]->place.kind == TableMarkup::Row ? i : last_row_[i];
    }
  }

  // Nested tables are not passed over where the last row is looked for.
  void MarkTables() {
    for (const Place table : tables_) {
      if (table->place.kind != TableMarkup::Table) continue;
      const std::size_t first = next_row_[table->index];
      if (first == kNone) return;
      const std::size_t after_row = Mark(originals_[first], u" FIRST_ROW");
      const std::size_t end = next_table_end_[after_row];
      const std::size_t last = end == kNone ? kNone : last_row_[end];
      Mark(originals_[last != kNone && last >= after_row ? last : first], u" LAST_ROW");
    }
  }

  // Marks a row and its end tag, which is supplied where there is none. Gives the place among
  // the tags of the page that is after the row.
  std::size_t Mark(Place row, TextView mark) {
    row->marks.insert(0, mark);
    const Place end = EndOfRow(row);
    const bool own = end != tags_.end() && end->place.kind == TableMarkup::RowEnd;
    // Also that of a nested table, if the row has none.
    Place last = own ? end : std::prev(end);
    while (last != row && last->place.kind != TableMarkup::RowEnd) --last;
    if (last == row) last = SupplyEnd(end);
    last->marks.insert(0, mark);
    return IndexOf(own ? std::next(end) : end);
  }

  // The end tag of the row, or what it ends in front of.
  Place EndOfRow(Place row) {
    Place tag = std::next(row);
    while (tag != tags_.end()) {
      const TableMarkup kind = tag->place.kind;
      if (kind == TableMarkup::RowEnd || kind == TableMarkup::Row || kind == TableMarkup::TableEnd) break;
      tag = kind == TableMarkup::Table ? AfterTable(tag) : std::next(tag);
    }
    return tag;
  }

  Place AfterTable(Place table) {
    const std::size_t end = elements_.EndOf(table->table);
    if (end == ElementPairs::npos) {
      if (!RowMayEndAfter(table)) return tags_.end();
      throw Failure(Failure::Kind::Argument);
    }
    const std::size_t close = page_.find(u'>', tables_[end]->place.at);
    Place tag = std::next(tables_[end]);
    while (tag != tags_.end() && tag->place.at < close) ++tag;
    return tag;
  }

  bool RowMayEndAfter(Place tag) {
    return std::any_of(tag, tags_.end(), [](const Tag& later) {
      return later.place.kind == TableMarkup::Row || later.place.kind == TableMarkup::RowEnd;
    });
  }

  Place SupplyEnd(Place in_front_of) {
    const std::size_t at = in_front_of == tags_.end() ? page_.size() : in_front_of->place.at;
    return tags_.insert(in_front_of, {{TableMarkup::RowEnd, at}, IndexOf(in_front_of), kNone, {}, true});
  }

  std::size_t IndexOf(Place tag) const { return tag == tags_.end() ? originals_.size() : tag->index; }

  void Write() {
    Text written;
    std::size_t done = 0;
    for (const Tag& tag : tags_) {
      if (tag.marks.empty()) continue;
      const TextView name = tag.place.kind == TableMarkup::Row ? u"<TR" : u"</TR";
      const std::size_t name_end = tag.place.at + (tag.supplied ? 0 : name.size());
      written.append(page_, done, tag.place.at - done).append(name).append(tag.marks);
      if (tag.supplied) written += u'>';
      done = name_end;
    }
    if (!written.empty()) page_ = written.append(page_, done);
  }

  Text& page_;
  ElementPairs elements_;
  TagList tags_;
  std::vector<Place> originals_;
  std::vector<Place> tables_;
  std::vector<std::size_t> next_row_;
  std::vector<std::size_t> next_table_end_;
  std::vector<std::size_t> last_row_;
};

}  // namespace

void RepairRowsAndCells(Text& page) {
  SupplyEnds(page, {TableMarkup::Row, TableMarkup::RowEnd, u"</TR>", {TableMarkup::Row}});
  SupplyEnds(page, {TableMarkup::Cell,
                    TableMarkup::CellEnd,
                    u"</TD>",
                    {TableMarkup::Cell, TableMarkup::Row, TableMarkup::RowEnd}});
  RowMarking(page).Run();
}

}  // namespace quillary::HTMLRTFConverter

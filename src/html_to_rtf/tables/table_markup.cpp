#include "html_to_rtf/tables/table_markup.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "text/case_folding.h"
#include "text/failure.h"
#include "text/integer16.h"

namespace quillary::HTMLRTFConverter {
namespace {

constexpr TextView kColspan = u"COLSPAN";

bool StartsWith(TextView text, TextView upper) {
  return text.size() >= upper.size() && std::equal(upper.begin(), upper.end(), text.begin(),
                                                   [](char16_t a, char16_t b) { return UpperUnit(b) == a; });
}

template <class Kinds>
bool FollowedBy(TextView text, std::size_t at, Kinds&& kinds) {
  MarkupPlace tag = NextMarkup(text, at + 1);
  while (tag.kind != TableMarkup::None && !kinds(tag.kind)) tag = NextMarkup(text, tag.at + 1);
  return tag.kind != TableMarkup::None;
}

// The piece up to the ">" of `own_end`, or up to one of the other tags that `ends` tells.
template <class Ends>
TextView Extract(TextView text, TableMarkup own_end, Ends&& ends) {
  MarkupPlace tag = NextMarkup(text, 1);
  while (tag.kind != TableMarkup::None) {
    if (tag.kind == own_end) {
      const std::size_t close = text.find(u'>', tag.at);
      return close == TextView::npos ? text : text.substr(0, close + 1);
    }
    if (ends(tag.kind)) return text.substr(0, tag.at);
    std::size_t next = tag.at + 1;
    if (tag.kind == TableMarkup::Table) {
      if (!FollowedBy(text, tag.at, [&](TableMarkup kind) { return kind == own_end || ends(kind); }))
        return text;
      next = tag.at + TableLength(text.substr(tag.at));
    }
    tag = NextMarkup(text, next);
  }
  return text;
}

std::size_t NextTable(TextView text, std::size_t from) {
  MarkupPlace tag = NextMarkup(text, from);
  while (tag.kind != TableMarkup::None && tag.kind != TableMarkup::Table) tag = NextMarkup(text, tag.at + 1);
  return tag.kind == TableMarkup::Table ? tag.at : TextView::npos;
}

// The next end tag of a table that has nothing but its name.
std::size_t NextPlainEnd(TextView text, std::size_t from) {
  for (MarkupPlace tag = NextMarkup(text, from); tag.kind != TableMarkup::None;
       tag = NextMarkup(text, tag.at + 1)) {
    if (tag.kind == TableMarkup::TableEnd && text.substr(tag.at + 7).starts_with(u'>')) return tag.at;
  }
  return TextView::npos;
}

}  // namespace

TableMarkup MarkupAt(TextView text, std::size_t at) {
  const bool end = at + 1 < text.size() && text[at + 1] == u'/';
  const std::size_t name = at + (end ? 2 : 1);
  if (name >= text.size() || UpperUnit(text[name]) != u'T') return TableMarkup::None;
  const TextView rest = text.substr(name + 1);
  if (StartsWith(rest, u"D")) return end ? TableMarkup::CellEnd : TableMarkup::Cell;
  if (StartsWith(rest, u"R")) return end ? TableMarkup::RowEnd : TableMarkup::Row;
  if (StartsWith(rest, u"ABLE")) return end ? TableMarkup::TableEnd : TableMarkup::Table;
  return TableMarkup::None;
}

MarkupPlace NextMarkup(TextView text, std::size_t from) {
  for (std::size_t at = text.find(u'<', from); at != TextView::npos; at = text.find(u'<', at + 1)) {
    const TableMarkup kind = MarkupAt(text, at);
    if (kind != TableMarkup::None) return {kind, at};
  }
  return {};
}

std::vector<MarkupPlace> AllMarkup(TextView text) {
  std::vector<MarkupPlace> tags;
  for (MarkupPlace tag = NextMarkup(text, 0); tag.kind != TableMarkup::None;
       tag = NextMarkup(text, tag.at + 1)) {
    tags.push_back(tag);
  }
  return tags;
}

std::size_t TableLength(TextView text) {
  std::size_t last = TextView::npos;
  int depth = 1;
  for (MarkupPlace tag = NextMarkup(text, 1); tag.kind != TableMarkup::None && depth > 0;
       tag = NextMarkup(text, tag.at + 1)) {
    if (tag.kind == TableMarkup::Table) ++depth;
    if (tag.kind != TableMarkup::TableEnd) continue;
    --depth;
    last = tag.at;
  }
  const std::size_t close = last == TextView::npos ? last : text.find(u'>', last);
  if (close == TextView::npos) throw Failure(Failure::Kind::Argument);
  return close + 1;
}

TextView ExtractRow(TextView text) {
  return Extract(text, TableMarkup::RowEnd,
                 [](TableMarkup kind) { return kind == TableMarkup::Row || kind == TableMarkup::TableEnd; });
}

TextView ExtractCell(TextView text) {
  return Extract(text, TableMarkup::CellEnd, [](TableMarkup kind) { return kind != TableMarkup::Table; });
}

std::int32_t FindLevelStart(TextView text, TextView name) {
  // Where the search would stand, for each table that is open.
  struct Level {
    std::size_t table = 0;
    std::int32_t found = 0;
  };
  std::vector<Level> levels;
  std::int32_t found = 0;
  const TableMarkup wanted = MarkupAt(name, 0);
  for (MarkupPlace tag = NextMarkup(text, 0); tag.kind != TableMarkup::None;
       tag = NextMarkup(text, tag.at + 1)) {
    if (tag.kind == TableMarkup::Table) levels.push_back({tag.at, found});
    if (tag.kind == wanted) found = static_cast<std::int32_t>(tag.at) + 1;
    if (tag.kind != TableMarkup::TableEnd) continue;
    YieldToHost();
    found = levels.empty() ? 0 : levels.back().found;
    if (!levels.empty()) levels.pop_back();
  }
  return found;
}

Text StripNestedTables(TextView text) {
  constexpr TextView kEnd = u"</TABLE>";
  Text kept;
  std::size_t done = 0;
  bool own = true;
  for (MarkupPlace tag = NextMarkup(text, 0); tag.kind != TableMarkup::None;) {
    if (tag.kind != TableMarkup::Table || std::exchange(own, false)) {
      tag = NextMarkup(text, tag.at + 1);
      continue;
    }
    const std::size_t end = NextPlainEnd(text, tag.at);
    if (end == TextView::npos) return Text(text);
    const std::size_t nested = NextTable(text, tag.at + 1);
    const std::size_t after = nested < end ? tag.at + TableLength(text.substr(tag.at)) : end + kEnd.size();
    kept.append(text, done, tag.at - done);
    done = after;
    tag = NextMarkup(text, after);
  }
  return kept.append(text, done);
}

std::int16_t CountColumns(TextView text) {
  Integer16 columns = 0;
  std::size_t end = text.size();
  bool cell = false;
  for (MarkupPlace tag = NextMarkup(text, 0); tag.kind != TableMarkup::None;
       tag = NextMarkup(text, tag.at + 1)) {
    if (tag.kind == TableMarkup::Cell) {
      cell = true;
      ++columns;
    } else if (tag.kind == TableMarkup::Row && cell) {
      end = tag.at;
      break;
    }
  }
  const Text row = ToUpper(text.substr(0, end));
  for (std::size_t at = row.find(kColspan); at != Text::npos; at = row.find(kColspan, at + 1)) {
    const std::size_t start = at + kColspan.size() + 1;
    const std::size_t value_end = row.find_first_of(u" >", start);
    const TextView value =
        value_end == Text::npos ? TextView() : TextView(row).substr(start, value_end - start);
    columns += ToInteger16(ReplaceAll(value, u"\"", u"")) - 1;
  }
  return columns;
}

}  // namespace quillary::HTMLRTFConverter

#include "table_repair/table_tags.h"

#include <algorithm>
#include <vector>

#include "text/ascii.h"
#include "text/case_folding.h"

namespace quillary::RepairHTMLTable {
namespace {

constexpr TextView kRowTags[] = {u"TR", u"TD", u"/TR", u"/TD"};
constexpr TextView kTableTags[] = {u"/TABLE", u"TABLE"};

TextView TableName(TextView text, std::size_t offset) {
  for (const TextView name : kTableTags) {
    if (StandsAt(text, offset, name)) return name;
  }
  return {};
}

TextView CellName(TextView text, std::size_t offset) {
  for (const TextView name : kRowTags) {
    if (StandsAt(text, offset, name)) return name;
  }
  return TableName(text, offset);
}

// A "<" that stands right after one that opens no known tag, or one further
// on, is passed over.
template <TextView NameAt(TextView, std::size_t)>
Tag FindTag(TextView text, std::size_t from) {
  std::size_t open = text.find(u'<', from);
  while (open != TextView::npos) {
    const TextView name = NameAt(text, open + 1);
    if (!name.empty()) {
      const std::size_t close = text.find(u'>', open + 1);
      if (close == TextView::npos) return {};
      return {name, open, close + 1};
    }
    open = text.find(u'<', open + 3);
  }
  return {};
}

template <Tag Find(TextView, std::size_t)>
TableTag FindByPosition(TextView text, std::int32_t start) {
  if (start < 1) throw Failure(Failure::Kind::Argument);
  const Tag tag = Find(text, static_cast<std::size_t>(start) - 1);
  if (!tag.found()) return {};
  return {tag.name, static_cast<std::int32_t>(tag.begin) + 1, static_cast<std::int32_t>(tag.end)};
}

// Tries all of them at each offset from the end on, so that the cost is what
// stands after the last one.
std::size_t LastTagStart(TextView text, TextView tag_starts) {
  std::vector<TextView> finds;
  for (std::size_t start = 0; start <= tag_starts.size();) {
    const std::size_t end = std::min(tag_starts.find(u';', start), tag_starts.size());
    if (end > start) finds.push_back(tag_starts.substr(start, end - start));
    start = end + 1;
  }
  for (std::size_t offset = text.size(); offset-- > 0;) {
    for (const TextView find : finds) {
      if (FoldUnit(text[offset]) == FoldUnit(find.front()) &&
          Equal(text.substr(offset, find.size()), find, Compare::IgnoreCase)) {
        return offset;
      }
    }
  }
  return TextView::npos;
}

}  // namespace

bool StandsAt(TextView text, std::size_t offset, TextView name) {
  if (offset > text.size() || text.size() - offset < name.size()) return false;
  for (std::size_t i = 0; i < name.size(); ++i) {
    if (AsciiUpper(text[offset + i]) != name[i]) return false;
  }
  return true;
}

Tag FindTableTag(TextView text, std::size_t from) { return FindTag<TableName>(text, from); }

Tag FindCellTag(TextView text, std::size_t from) { return FindTag<CellName>(text, from); }

TableTag NextTableTag(TextView text, std::int32_t start) { return FindByPosition<FindTableTag>(text, start); }

TableTag NextCellTag(TextView text, std::int32_t start) { return FindByPosition<FindCellTag>(text, start); }

std::size_t OffsetAfterLastTag(TextView text, TextView tag_starts) {
  const std::size_t tag_start = LastTagStart(text, tag_starts);
  if (tag_start == TextView::npos) return TextView::npos;
  const std::size_t close = text.find(u'>', tag_start + 3);
  return close == TextView::npos ? 0 : close + 1;
}

Text InsertAfterLastTag(TextView text, TextView tag_starts, TextView insert) {
  Text result(text);
  const std::size_t offset = OffsetAfterLastTag(text, tag_starts);
  if (offset != TextView::npos) result.insert(offset, insert);
  return result;
}

}  // namespace quillary::RepairHTMLTable

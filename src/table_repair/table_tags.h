// Where the tags of a table stand. Six tags are known, by their first letters
// only; "<TH" is none of them.
#pragma once

#include <cstddef>
#include <cstdint>

#include "text/text.h"

namespace quillary::RepairHTMLTable {

struct Tag {
  TextView name;          // "TR", "TD", "/TR", "/TD", "TABLE", "/TABLE"; empty: no tag
  std::size_t begin = 0;  // offset of the "<"
  std::size_t end = 0;    // offset after the first ">" after the "<"
  bool found() const { return !name.empty(); }
};

/// The next "TABLE" or "/TABLE" at or after the offset `from`. A tag that is
/// never closed with ">" counts as no tag.
Tag FindTableTag(TextView text, std::size_t from);

/// The same for all six tags.
Tag FindCellTag(TextView text, std::size_t from);

/// The same as operations with 1-based positions; both are 0 for no tag.
struct TableTag {
  TextView Name;
  std::int32_t StartPos = 0;  // of the "<"
  std::int32_t EndPos = 0;    // of the ">"
};

/// Throw Failure (argument) for a start below 1.
TableTag NextTableTag(TextView text, std::int32_t start);
TableTag NextCellTag(TextView text, std::int32_t start);

/// Inserts `insert` after the ">" that follows the last of the `tag_starts`,
/// which are joined by ";" and found in any case. Without any of them the text
/// stays as it is; one that no ">" follows puts the insertion to the very front.
Text InsertAfterLastTag(TextView text, TextView tag_starts, TextView insert);

/// The 0-based offset of that insertion, npos if there is none of them.
std::size_t OffsetAfterLastTag(TextView text, TextView tag_starts);

/// Whether `name`, in ASCII upper case, stands at the 0-based `offset` in any case.
bool StandsAt(TextView text, std::size_t offset, TextView name);

}  // namespace quillary::RepairHTMLTable

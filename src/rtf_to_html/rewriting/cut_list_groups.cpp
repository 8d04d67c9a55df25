// Cuts the list-level groups of the rich edit control out of the text.
#include <algorithm>

#include "rules/rewriting.h"
#include "text/search.h"

namespace quillary::modQuillary {
namespace {

constexpr TextView group_start = u"{\\*\\pn\\pnlvlblt\\pnf1\\";
constexpr TextView group_end = u"{\\pntxtb\\'b7}}";

// So many units in front of a cut can be the beginning of a mark that the cut
// completes. A group that is cut is always longer.
constexpr std::size_t seam = std::max(group_start.size(), group_end.size()) - 1;

// Cuts while both marks are there and the start comes first. The text is
// closed up as the scan goes: what lies in front of `written` is settled, what
// lies behind `read` is still to be searched, and nothing lies between.
bool CutGroups(Text& text) {
  const Finder starts(group_start, Compare::Binary);
  const Finder ends(group_end, Compare::Binary);
  std::size_t written = 0;
  std::size_t read = 0;
  bool cut = false;
  while (true) {
    const std::size_t start = starts.Next(text, read);
    const std::size_t end = start == Finder::npos ? Finder::npos : ends.Next(text, read);
    if (end == Finder::npos || start > end) break;
    const auto from = text.begin();
    const auto at = [&](std::size_t offset) { return from + static_cast<std::ptrdiff_t>(offset); };
    std::copy(at(read), at(start), at(written));
    written += start - read;
    // The last settled units go in front of the rest, where a mark that lies
    // across the cut is seen.
    const std::size_t again = std::min(seam, written);
    read = end + group_end.size() - again;
    std::copy(at(written - again), at(written), at(read));
    written -= again;
    cut = true;
  }
  if (cut) text.erase(written, read - written);
  return cut;
}

}  // namespace

void CutListGroups(rules::Rewriting& text) {
  if (!text.Holds(group_start, Compare::Binary)) return;
  Text changed = text.text();
  if (CutGroups(changed)) text.Assign(std::move(changed));
}

}  // namespace quillary::modQuillary

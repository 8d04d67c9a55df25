// Cuts the list-level groups of the rich edit control out of the text.
#include <algorithm>

#include "rules/rewriting.h"
#include "text/search.h"

namespace quillary::modQuillary {
namespace {

constexpr TextView kGroupStart = u"{\\*\\pn\\pnlvlblt\\pnf1\\";
constexpr TextView kGroupEnd = u"{\\pntxtb\\'b7}}";

// So many units in front of a cut can be the beginning of a delimiter that the cut
// completes. A group that is cut is always longer.
constexpr std::size_t kSeam = std::max(kGroupStart.size(), kGroupEnd.size()) - 1;

// Cuts while both delimiters are there and the start comes first. The text is
// closed up as the scan goes: what lies in front of `written` is final, what
// lies after `read` is still to be searched, and nothing lies between.
bool CutGroups(Text& text) {
  const Finder starts(kGroupStart, Compare::Binary);
  const Finder ends(kGroupEnd, Compare::Binary);
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
    // The last final units go in front of the rest, where a delimiter that lies
    // across the cut is seen.
    const std::size_t again = std::min(kSeam, written);
    read = end + kGroupEnd.size() - again;
    std::copy(at(written - again), at(written), at(read));
    written -= again;
    cut = true;
  }
  if (cut) text.erase(written, read - written);
  return cut;
}

}  // namespace

void CutListGroups(rules::Rewriting& text) {
  if (!text.Holds(kGroupStart, Compare::Binary)) return;
  Text changed = text.text();
  if (CutGroups(changed)) text.Assign(std::move(changed));
}

}  // namespace quillary::modQuillary

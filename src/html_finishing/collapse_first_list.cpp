#include "html_finishing/collapse_first_list.h"

namespace quillary::html_finishing {

namespace {
constexpr TextView kListStart = u"<ul><li>";
}

Text CollapseFirstList(Text html) {
  constexpr TextView kListEnd = u"</li></ul>";
  const std::size_t start = html.find(kListStart);
  if (start == Text::npos) return html;
  const std::size_t end = html.find(kListEnd);  // a list end further up in the page ends it, too
  if (end == Text::npos || end < start) return html;
  Text block = html.substr(start, end + kListEnd.size() - start);
  const std::size_t length = block.size();
  const std::int32_t items = CountOccurrences(block, u"<li>");
  if (items < 2) return html;
  if (ReplaceIn(block, u"<br>", u"", Compare::Binary, items - 1)) html.replace(start, length, block);
  return html;
}

void CollapseFirstList(rules::Rewriting& page) {
  if (page.Holds(kListStart, Compare::Binary)) page.Assign(CollapseFirstList(page.Take()));
}

}  // namespace quillary::html_finishing

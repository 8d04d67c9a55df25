#include <algorithm>

#include "html_to_rtf/inline/fonts.h"

namespace quillary::HTMLRTFConverter {

void DropRepeatedFontTags(Text& page) {
  constexpr TextView kStart = u"<FONT";
  const Text upper = ToUpper(page);
  const TextView view = page;
  Text kept;
  // What stands in front of `done` is in `kept`, but for what was dropped between the two.
  std::size_t dropped = 0;
  std::size_t done = 0;
  std::size_t start = upper.find(kStart);
  while (start != Text::npos) {
    const std::size_t end = view.find(u'>', start);
    if (end == TextView::npos) break;
    const TextView tag = view.substr(start, end + 1 - start);
    // The tag may begin in one whose repetitions are gone already.
    const std::size_t first = std::max(done, end + 1);
    std::size_t after = first;
    std::size_t next = view.find(u'>', after);
    while (next != TextView::npos && view.substr(after, next + 1 - after) == tag) {
      after = next + 1;
      next = view.find(u'>', after);
    }
    if (after > first) {
      kept.append(view, done, first - done);
      dropped = end + 1;
      done = after;
    }
    if (next == TextView::npos) break;
    start = upper.find(kStart, start + 1);
    if (start >= dropped && start < done) start = upper.find(kStart, done);
  }
  if (done > 0) page = kept.append(view, done);
}

}  // namespace quillary::HTMLRTFConverter

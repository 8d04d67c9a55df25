#include <algorithm>

#include "html_to_rtf/inline/fonts.h"

namespace quillary::HTMLRTFConverter {

void DropRepeatedFontTags(Text& page) {
  constexpr TextView kStart = u"<FONT";
  const Text upper = ToUpper(page);
  const TextView view = page;
  Text kept;
  std::size_t done = 0;  // what stands in front is in `kept`, or dropped
  // Of the tag at hand the original stands in front of `done`, repetitions after it.
  for (std::size_t start = upper.find(kStart); start != Text::npos; start = upper.find(kStart, start + 1)) {
    const std::size_t end = view.find(u'>', start);
    if (end == TextView::npos) break;
    const TextView tag = view.substr(start, end + 1 - start);
    std::size_t after = std::max(done, end + 1);
    const std::size_t first = after;
    std::size_t next = view.find(u'>', after);
    while (next != TextView::npos && view.substr(after, next + 1 - after) == tag) {
      after = next + 1;
      next = view.find(u'>', after);
    }
    if (after > first) {
      kept.append(view, done, first - done);
      done = after;
    }
    if (next == TextView::npos) break;
  }
  if (done > 0) page = kept.append(view, done);
}

}  // namespace quillary::HTMLRTFConverter

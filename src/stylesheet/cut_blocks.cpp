#include "stylesheet/cut_blocks.h"

#include <algorithm>

#include "text/search.h"

namespace quillary::stylesheet {
namespace {

// The offset in `rest` after the first delimiter that begins in `head`, which stands in front
// of it, at or after `from`; npos if there is none.
std::size_t EndAcross(TextView head, TextView rest, TextView close, std::size_t from) {
  for (std::size_t at = from; at < head.size(); ++at) {
    const TextView start = head.substr(at, close.size());
    const TextView end = close.substr(start.size());
    if (close.starts_with(start) && rest.starts_with(end)) return end.size();
  }
  return TextView::npos;
}

}  // namespace

// What is kept grows at its end only, and what stands around a block that went may be a new
// delimiter: so the end of what is kept is looked at after each unit.
void CutBlocks(Text& text, TextView open, TextView close, std::size_t close_from) {
  if (!Holds(text, open, Compare::IgnoreCase)) return;
  const Text upper = ToUpper(text);
  const TextView source = upper;
  const Finder opens(open, Compare::Binary);
  const Finder closes(close, Compare::Binary);
  Text kept;
  Text kept_upper;
  const auto keep = [&](std::size_t from, std::size_t end) {
    kept.append(text, from, end - from);
    kept_upper.append(upper, from, end - from);
  };
  std::size_t at = 0;
  while (true) {
    // Near a seam, unit by unit; else up to the next delimiter at once.
    const std::size_t seam = std::min(source.size(), at + open.size() - 1);
    while (at < seam && !kept_upper.ends_with(open)) {
      keep(at, at + 1);
      ++at;
    }
    if (!kept_upper.ends_with(open)) {
      const std::size_t hit = opens.Next(source, at + 1 < open.size() ? 0 : at + 1 - open.size());
      if (hit == Finder::npos) break;
      keep(at, hit + open.size());
      at = hit + open.size();
    }
    std::size_t end = EndAcross(open, source.substr(at), close, close_from);
    if (end == TextView::npos) {
      const std::size_t hit = closes.Next(source, at);
      if (hit == Finder::npos) break;
      end = hit + close.size() - at;
    }
    at += end;
    kept.resize(kept.size() - open.size());
    kept_upper.resize(kept.size());
  }
  keep(at, source.size());
  text = std::move(kept);
}

}  // namespace quillary::stylesheet

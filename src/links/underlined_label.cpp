#include "links/underlined_label.h"

#include "text/failure.h"
#include "text/limits.h"
#include "text/search.h"

namespace quillary::links {

std::size_t LastWithin(TextView text, std::size_t from, std::size_t end, TextView find, Compare mode) {
  if (end < from + find.size()) return kNowhere;
  for (std::size_t at = end - find.size() + 1; at-- > from;) {
    if (text[at] == find[0] && Equal(text.substr(at, find.size()), find, mode)) return at;
  }
  return kNowhere;
}

bool TakeFontTags(Text& label, Text& fonts, int most, bool drop_blue) {
  for (int taken = 0; taken < most && label.find(u'<') != Text::npos; ++taken) {
    const std::size_t end = label.find(u'>');
    if (!label.starts_with(u"<font ") || end == Text::npos) return false;
    fonts.append(label, 0, end + 1);
    label.erase(0, end + 1);
    ReplaceIn(label, fonts, u"", Compare::IgnoreCase);
    if (drop_blue) {
      ReplaceIn(label, u"<font COLOR=\"#0000ff\">", u"", Compare::Binary, 1);
      ReplaceIn(label, u"<font color=\"#0000ff\">", u"", Compare::Binary, 1);
    }
  }
  return true;
}

void RemoveEach(Text& text, std::initializer_list<TextView> finds) {
  for (const TextView find : finds) ReplaceIn(text, find, u"");
}

Replacements ReplaceWithin(Text& page, TextView find, TextView with, Compare mode, std::size_t from,
                           std::size_t end) {
  const Finder finder(find, mode);
  const TextView searched = TextView(page).substr(0, end);
  Replacements replaced;
  replaced.first = finder.Next(searched, from);
  if (replaced.first == Finder::npos) return replaced;
  std::size_t hit = finder.Next(searched, replaced.first + find.size());
  replaced.count = 1;
  if (hit == Finder::npos) {
    if (page.size() + with.size() > limits::kWorkingUnits) throw LimitReached(LimitReached::Limit::Growth);
    page.replace(replaced.first, find.size(), with);
    return replaced;
  }
  Text result = page.substr(0, replaced.first);
  result.append(with);
  std::size_t copied = replaced.first + find.size();
  for (; hit != Finder::npos; hit = finder.Next(searched, copied)) {
    result.append(page, copied, hit - copied).append(with);
    copied = hit + find.size();
    ++replaced.count;
    if (result.size() > limits::kWorkingUnits) throw LimitReached(LimitReached::Limit::Growth);
  }
  page = result.append(page, copied, Text::npos);
  return replaced;
}

}  // namespace quillary::links

#include <algorithm>

#include "html_to_rtf/floats/floats.h"
#include "text/ascii.h"
#include "text/element_ends.h"
#include "text/search.h"

namespace quillary::HTMLRTFConverter {
namespace {

constexpr std::size_t npos = TextView::npos;
constexpr TextView kFloat = u"FLOAT";
constexpr std::size_t kLongestName = 64;  // an element of a longer name has no end
constexpr TextView kTableEnd = u"</TD></TR></TABLE>";

class FloatRewriting {
 public:
  explicit FloatRewriting(const Text& page) : page_(page), upper_(ToUpper(page)), ends_(upper_) {}

  Text Run() {
    const Finder floats(kFloat, Compare::Binary);
    for (std::size_t at = floats.Next(upper_, 0); at != npos;) {
      const std::size_t bracket = BracketBefore(at);
      if (bracket == npos) break;
      std::size_t next = at + 1;
      if (upper_[bracket] == u'<' && bracket != refused_) {
        refused_ = bracket;
        next = std::max(next, WriteRow(bracket));
      }
      at = floats.Next(upper_, next);
    }
    return written_.append(page_, done_);
  }

 private:
  // The last "<" or ">" in front of a place that only moves forward.
  std::size_t BracketBefore(std::size_t at) {
    for (; next_bracket_ < at; next_bracket_ = upper_.find_first_of(u"<>", bracket_ + 1)) {
      bracket_ = next_bracket_;
    }
    return bracket_;
  }

  // The first ">" after a place that only moves forward.
  std::size_t TagEnd(std::size_t start) {
    if (tag_end_ < start) tag_end_ = upper_.find(u'>', start);
    return tag_end_;
  }
  TextView Tag(std::size_t start, std::size_t end) const {
    return TextView(upper_).substr(start, end + 1 - start);
  }

  static bool Floats(TextView tag) {
    std::size_t style = tag.find(u"STYLE=");
    if (style == npos) style = tag.find(u"STYLE =");
    return style != npos && tag.find(kFloat, style) != npos;
  }

  void Write(std::size_t end, TextView addition) {
    written_.append(page_, done_, end - done_).append(addition);
    done_ = end;
  }

  static Text CellTag(TextView tag) {
    const Text width = StyleWidth(tag);
    return width.empty() ? Text(u"<TD>") : Joined({u"<TD WIDTH=\"", width, u"\">"});
  }

  // The row that begins with the element of that tag. Gives the place after the row, or 0 if
  // the tag does not float or its element has no end.
  std::size_t WriteRow(std::size_t start) {
    const std::size_t tag_end = TagEnd(start);
    if (tag_end == npos || !Floats(Tag(start, tag_end))) return 0;
    const TextView rest = TextView(upper_).substr(start + 1, kLongestName + 1);
    const std::size_t space = rest.find(u' ');
    if (space == npos) return 0;
    const TextView name = rest.substr(0, space);
    const ElementEnd element = ends_.Of(start, name);
    if (!element.found()) return 0;
    Write(start, u"<TABLE><TR>" + CellTag(Tag(start, tag_end)));
    return WriteNeighbour(element.after, name);
  }

  std::size_t WriteNeighbour(std::size_t after, TextView name) {
    const std::size_t start = upper_.find(u'<', after);
    const std::size_t tag_end = start == npos ? npos : TagEnd(start);
    if (tag_end != npos) {
      const TextView rest = TextView(upper_).substr(start + 1);
      const TextView own_name = rest.substr(0, rest.find_first_of(u" >"));
      const ElementEnd element = ends_.Of(start, own_name);
      if (!own_name.empty() && own_name.front() != u'/' && element.found()) {
        Write(start, own_name == name ? u"</TD>" : u"");
        Write(start, CellTag(Tag(start, tag_end)));
        Write(element.after, kTableEnd);
        return element.after;
      }
    }
    Write(after, kTableEnd);
    return after;
  }

  const Text& page_;
  Text upper_;
  ElementEnds ends_;
  Text written_;
  std::size_t done_ = 0;
  std::size_t bracket_ = npos;
  std::size_t next_bracket_ = upper_.find_first_of(u"<>");
  std::size_t tag_end_ = upper_.find(u'>');
  std::size_t refused_ = npos;  // the tag that was looked at last
};

}  // namespace

void FloatsToTables(Text& page) {
  if (!Holds(page, kFloat, Compare::IgnoreCase)) return;
  page = FloatRewriting(page).Run();
}

Text StyleWidth(TextView tag) {
  constexpr TextView kWidth = u"WIDTH:";
  const Text upper = ToUpper(tag);
  const std::size_t at = upper.find(kWidth);
  if (at == npos) return {};
  const TextView value = TextView(upper).substr(at + kWidth.size());
  for (const char16_t end : {u';', u' ', u'>'}) {
    const std::size_t found = value.find(end);
    if (found != npos) return Trim(ReplaceAll(value.substr(0, found), u"PX", u""));
  }
  return {};
}

}  // namespace quillary::HTMLRTFConverter

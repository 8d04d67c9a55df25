#include <algorithm>
#include <array>
#include <vector>

#include "html_to_rtf/floats/floats.h"
#include "rules/sentinels.h"
#include "text/element_ends.h"

namespace quillary::HTMLRTFConverter {
namespace {

constexpr std::size_t npos = TextView::npos;

// Tried in this order, wherever they stand.
constexpr TextView kForms[] = {u"LANG=\"AR-SA\"", u"LANG= \"AR-SA\"", u"LANG= AR-SA", u"LANG=AR-SA"};

class ArabicRuns {
 public:
  explicit ArabicRuns(const Text& page) : page_(page), upper_(ToUpper(page)), ends_(upper_) {}

  Text Mark() {
    std::size_t from = 0;
    for (const TextView form : kForms) {
      for (std::size_t at = upper_.find(form, from); at != npos; at = upper_.find(form, from)) {
        from = at + 1;
        if (!MarkElement(at)) return Written();
      }
    }
    return Written();
  }

 private:
  struct Place {
    std::size_t at;
    bool ends;
    std::size_t order;  // the last start at a place is the first
  };

  // The last "<" or ">" in front of a place that only moves forward.
  std::size_t BracketBefore(std::size_t at) {
    for (; next_bracket_ < at; next_bracket_ = upper_.find_first_of(u"<>", bracket_ + 1)) {
      bracket_ = next_bracket_;
    }
    return bracket_;
  }

  // False where the stage stops.
  bool MarkElement(std::size_t at) {
    const std::size_t start = BracketBefore(at);
    if (start == npos) return false;
    if (upper_[start] == u'>') return true;
    if (tag_end_ == npos || tag_end_ < start) tag_end_ = upper_.find(u'>', start);
    if (tag_end_ == npos) return false;  // nor does any tag end that follows
    places_.push_back({tag_end_ + 1, false, places_.size()});
    const TextView tag = TextView(upper_).substr(start + 1, tag_end_ - start - 1);
    const std::size_t space = tag.find(u' ');
    if (space == npos) return true;
    const ElementEnd end = ends_.Of(start, tag.substr(0, space));
    if (end.found()) places_.push_back({upper_.rfind(u'<', end.after - 1), true, places_.size()});
    return true;
  }

  Text Written() {
    std::sort(places_.begin(), places_.end(), [](const Place& left, const Place& right) {
      if (left.at != right.at) return left.at < right.at;
      if (left.ends != right.ends) return right.ends;
      return left.ends ? left.order < right.order : left.order > right.order;
    });
    Text written;
    std::size_t done = 0;
    for (const Place& place : places_) {
      written.append(page_, done, place.at - done);
      written.append(place.ends ? sentinels::arabic_end : sentinels::arabic_start);
      done = place.at;
    }
    return written.append(page_, done);
  }

  const Text& page_;
  Text upper_;
  ElementEnds ends_;
  std::vector<Place> places_;
  std::size_t bracket_ = npos;
  std::size_t next_bracket_ = upper_.find_first_of(u"<>");
  std::size_t tag_end_ = npos;  // of the tag that was looked at last
};

}  // namespace

void MarkArabicRuns(Text& page) {
  if (!Holds(page, u"AR-SA", Compare::IgnoreCase)) return;
  page = ArabicRuns(page).Mark();
}

}  // namespace quillary::HTMLRTFConverter

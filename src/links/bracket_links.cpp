#include "links/bracket_links.h"

#include "links/link_lists.h"
#include "links/link_stretch.h"
#include "links/page_editor.h"

namespace quillary::links {
namespace {

constexpr std::size_t kLongestLink = 100;

Text AnchorOf(TextView link, TextView prefix) {
  TextView scheme;
  if (prefix.find(u"file:") != TextView::npos) {
    scheme = u"file://";
  } else if (prefix.find(u"mailto:") != TextView::npos) {
    scheme = u"mailto:";
  }
  return Text(u"<a href=\"").append(scheme).append(link).append(u"\">").append(link).append(u"</a>");
}

void Scan(RtfToHtmlState& state, Text& text) {
  state.FoundLinks.Size(kFoundCapacity);
  InPlaceEditor in_place(text);
  PageEditor& page = in_place.editor();
  LinkStretches stretches(state, page);
  std::int32_t count = 1;
  while (stretches.Next(false, kLongestLink)) {
    Text link = stretches.UpToEnd();
    if (link.size() > kLongestStretchWithoutLink) {
      const Text through = stretches.ThroughEnd();
      if (through.ends_with(u"&gt;")) link = through.substr(0, through.size() - 4);
      state.FoundLinks.Set(count, link);
      const Text anchor = AnchorOf(link, stretches.prefix());
      if (!link.empty()) {
        // The bracket after the link goes with it; where there is none, it is
        // the four units that stand there.
        const std::size_t prefix_units = stretches.prefix().size();
        page.Replace(stretches.start() - prefix_units, prefix_units + link.size() + 4, anchor);
      }
      stretches.MoveCursor(link.size(), anchor.size());
      if (++count > kFoundLimit) break;
    }
    if (stretches.start() + 2 >= page.Size()) break;
  }
  state.FoundLinks.Set(count, u"");
}

}  // namespace

void ScanBracketLinks(RtfToHtmlState& state, TextView copy) {
  Text page(copy);
  Scan(state, page);
  state.HtmlOut.Assign(std::move(page));
}

void ScanBracketLinks(RtfToHtmlState& state) { Scan(state, state.HtmlOut.Edit()); }

}  // namespace quillary::links

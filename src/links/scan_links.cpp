#include "links/scan_links.h"

#include <algorithm>
#include <optional>

#include "links/bracketed_words.h"
#include "links/link_lists.h"
#include "links/link_stretch.h"
#include "links/page_editor.h"
#include "rules/sentinels.h"
#include "text/search.h"

namespace quillary::links {
namespace {

constexpr std::size_t kLongestLink = 200;
constexpr TextView kOpening = u"&lt;";

bool Contains(TextView text, TextView find) { return text.find(find) != TextView::npos; }

Text Anchor(TextView target, TextView label) {
  return Text(u"<a href=\"").append(target).append(u"\">").append(label).append(u"</a>");
}

Text AnchorOf(TextView link, TextView prefix) {
  if (ToLower(link.substr(0, 3)) == u"www") return Anchor(Text(u"http://").append(link), link);
  if (Contains(prefix, u":\\") && !Contains(prefix, u"file:\\\\")) {
    return Anchor(Text(u"file://").append(link), link);
  }
  return Anchor(link, link);
}

// Whether a text with an at sign in it is a link nevertheless: an address with
// a user name and a colon after the scheme. Every other one is a mail address
// or nothing.
bool IsLink(TextView candidate) {
  const std::size_t at = candidate.find(u'@');
  if (at == TextView::npos || candidate.find(u'.', at) == TextView::npos) return true;
  const std::size_t colon = candidate.rfind(u':');
  return colon != TextView::npos && colon < at && colon >= 7 &&
         candidate.find(u'@', at + 1) == TextView::npos;
}

bool IsPicture(TextView link) {
  return link.ends_with(u".gif") || link.ends_with(u".jpg") || link.ends_with(u".jpeg") ||
         link.ends_with(u".png");
}

class LinkScan {
 public:
  LinkScan(RtfToHtmlState& state, PageEditor& page) : state_(state), page_(page), stretches_(state, page) {
    const std::int32_t last = state.LinkDelimiters.upper() - kDelimitersOfAddressesOnly;
    bool space_ends_links = false;
    for (std::int32_t i = 1; i <= last; ++i) space_ends_links |= state.LinkDelimiters[i] == u" ";
    bool space_in_prefix = false;
    for (std::int32_t i = 1; i <= state.LinkPrefixes.upper(); ++i) {
      space_in_prefix |= Contains(state.LinkPrefixes[i], u" ");
    }
    links_have_no_spaces_ = space_ends_links && !space_in_prefix;
  }

  void Run() {
    while (stretches_.Next(true, kLongestLink)) {
      if (stretches_.UpToEnd().size() > kLongestStretchWithoutLink) {
        LinkCandidate();
        if (++count_ > kFoundLimit) break;
      }
      if (stretches_.start() + 4 >= page_.Size()) break;
    }
    state_.FoundLinks.Set(count_, u"");
  }

 private:
  void LinkCandidate();
  bool ReplaceLabelled(Text& anchor);
  bool TargetFollows();
  std::size_t NextSpace(std::size_t from);
  std::size_t FirstOccurrence(TextView text, std::size_t word_at);
  void Replace(std::size_t offset, std::size_t count, TextView with);

  RtfToHtmlState& state_;
  PageEditor& page_;
  LinkStretches stretches_;
  std::int32_t count_ = 1;
  Text label_;
  // Where no link holds a space, no anchor makes a bracketed word.
  bool links_have_no_spaces_ = false;
  std::optional<BracketedWords> words_;
  // The last space looked up, as a distance from the end of the page; 0: none.
  std::optional<std::size_t> next_space_;
};

void LinkScan::LinkCandidate() {
  const std::size_t start = stretches_.start();
  Text link = stretches_.ThroughEnd();
  const bool closed = link.ends_with(u"&gt;");
  if (closed) {
    link.resize(link.size() - 4);
  } else {
    link = stretches_.UpToEnd();
    // No link, but it is counted like one.
    if (!IsLink(link)) link.clear();
  }
  state_.FoundLinks.Set(count_, link);
  Text anchor = AnchorOf(link, stretches_.prefix());
  if (!link.empty()) {
    ReplaceIn(anchor, u"@", sentinels::at_sign);
    if (closed && page_.StandsBefore(start, kOpening, Compare::Binary)) {
      if (IsPicture(link)) {
        Replace(start - 4, link.size() + 8, Text(u"<img border=\"0\" src=\"").append(link).append(u"\">"));
      } else {
        Replace(start, link.size(), anchor);
      }
    } else if (!ReplaceLabelled(anchor)) {
      Replace(start, link.size(), anchor);
    }
  }
  stretches_.MoveCursor(link.size(), anchor.size());
}

// A text that is followed by its target in brackets becomes the label of one
// anchor, where such text stands first in the page. False if no target follows.
bool LinkScan::ReplaceLabelled(Text& anchor) {
  if (!TargetFollows()) return false;
  const std::size_t start = stretches_.start();
  const TextView rest = page_.From(stretches_.end() + 1 + kOpening.size());
  const Text target(rest.substr(0, rest.find(u"&gt;")));
  // The label ends with the space in front of the bracket. Where there is no
  // room for that space, the last label stays.
  const std::size_t bracket = page_.From(start).find(kOpening);
  if (bracket != TextView::npos && bracket > 0) label_ = page_.Copy(start, bracket - 1);
  anchor = Anchor(target, label_);
  const Text found = Text(label_).append(u" &lt;").append(target).append(u"&gt; ");
  const std::size_t first = FirstOccurrence(found, label_.size() + 1);
  if (first != TextView::npos) {
    Replace(first, found.size(), anchor);
    if (first != start) {
      // A change elsewhere: what was counted from here is not where it was.
      words_.reset();
      next_space_.reset();
    }
  }
  return true;
}

// Whether a bracket opens after the unit at the end of the stretch, and
// another closes right in front of the next space.
bool LinkScan::TargetFollows() {
  const std::size_t opening = stretches_.end() + 1;
  if (!page_.StandsAt(opening, kOpening, Compare::Binary)) return false;
  const std::size_t space = NextSpace(opening + 1);
  return space != TextView::npos && page_.StandsBefore(space, u"&gt;", Compare::Binary);
}

std::size_t LinkScan::NextSpace(std::size_t from) {
  const std::size_t size = page_.Size();
  if (!next_space_ || size - *next_space_ < from) {
    const std::size_t offset = page_.From(from).find(u' ');
    next_space_ = offset == TextView::npos ? 0 : size - from - offset;
  }
  return *next_space_ == 0 ? TextView::npos : size - *next_space_;
}

std::size_t LinkScan::FirstOccurrence(TextView text, std::size_t word_at) {
  if (!links_have_no_spaces_) return Finder(text, Compare::IgnoreCase).Next(page_.From(0), 0);
  if (!words_) words_.emplace(page_);
  return words_->First(page_, text, word_at);
}

void LinkScan::Replace(std::size_t offset, std::size_t count, TextView with) {
  if (words_) words_->FreezeBefore(page_, offset);
  page_.Replace(offset, count, with);
}

void Scan(RtfToHtmlState& state, Text& text) {
  state.FoundLinks.Size(kFoundCapacity);
  InPlaceEditor page(text);
  LinkScan(state, page.editor()).Run();
}

}  // namespace

void ScanLinks(RtfToHtmlState& state, TextView copy) {
  Text page(copy);
  Scan(state, page);
  state.HtmlOut.Assign(std::move(page));
}

void ScanLinks(RtfToHtmlState& state) { Scan(state, state.HtmlOut.Edit()); }

}  // namespace quillary::links

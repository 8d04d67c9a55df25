#include "links/picture_links.h"

#include <algorithm>
#include <utility>

#include "links/underlined_label.h"
#include "text/failure.h"
#include "text/search.h"

namespace quillary::links {
namespace {

constexpr TextView kImageOpening = u" <img border=";

/// Finds the ending of the next run. A repair destroys endings and makes none,
/// so each kind has its own cursor.
class Endings {
 public:
  Endings() {
    for (std::size_t i = 0; i < finders_.size(); ++i)
      finders_[i] = Finder(kPictureEndings[i], Compare::Binary);
  }

  /// 0-based offset of the first ending, the kinds tried in their order, or nowhere.
  std::size_t Next(TextView page) {
    for (std::size_t kind = 0; kind < finders_.size(); ++kind) {
      if (cursors_[kind] == kNowhere) continue;
      cursors_[kind] = finders_[kind].Next(page, cursors_[kind]);
      // In front of the fifth unit there is no room for a file name.
      if (cursors_[kind] != kNowhere && cursors_[kind] >= 4) return cursors_[kind];
    }
    return kNowhere;
  }

  void ChangedFrom(std::size_t offset) {
    for (std::size_t& cursor : cursors_) {
      if (cursor != kNowhere) cursor = std::min(cursor, offset);
    }
  }

 private:
  std::array<Finder, 4> finders_ = {Finder(u"", Compare::Binary), Finder(u"", Compare::Binary),
                                    Finder(u"", Compare::Binary), Finder(u"", Compare::Binary)};
  std::array<std::size_t, 4> cursors_ = {};
};

// The trimmed text between src=" and the next double quote, or nothing.
bool FileOf(TextView image, TextView& file) {
  constexpr TextView kSource = u" src=\"";
  const std::size_t begin = image.find(kSource);
  if (begin == TextView::npos) return false;
  const std::size_t end = image.find(u'"', begin + kSource.size());
  if (end == TextView::npos) return false;
  file = TrimView(image.substr(begin + kSource.size(), end - begin - kSource.size()));
  return true;
}

// Replaces the underlined run in its three forms. Returns the offset of the
// first change, or nowhere.
std::size_t LinkRun(Text& page, const Text& run, TextView fonts, TextView linked) {
  const Text end = run + u"</u>";
  const Finder ends(end, Compare::Binary);
  const std::size_t first = ends.Next(page, 0);
  if (first == Finder::npos) return kNowhere;
  const std::size_t only_end = ends.Next(page, first + 1) == Finder::npos ? first + end.size() : kNowhere;
  std::size_t changed_from = kNowhere;
  for (const Text& opening :
       {Text(kUnderline), Text(kUnderline).append(fonts), Text(u"<font COLOR=\"#0000ff\"><u>")}) {
    const std::size_t from = first - std::min(first, opening.size());
    changed_from = std::min(
        changed_from, ReplaceWithin(page, opening + end, linked, Compare::Binary, from, only_end).first);
    if (changed_from != kNowhere && only_end != kNowhere) break;
  }
  return changed_from;
}

}  // namespace

Text RepairPictureLinks(TextView html) {
  Text page(html);
  Endings endings;
  for (int repair = 0; repair < kMostRepairs; ++repair) {
    const std::size_t ending = endings.Next(page);
    if (ending == kNowhere) break;
    // Two units after the ending are still looked at.
    const std::size_t end = std::min(page.size(), ending + kPictureEndings[0].size() + 2);
    const std::size_t image_at = LastWithin(page, 0, end, kImageOpening, Compare::Binary);
    const std::size_t begin = LastWithin(page, 0, end, kUnderline);
    if (image_at == kNowhere || begin == kNowhere) break;
    if (image_at < begin) throw Failure(Failure::Kind::Argument);
    Text label = page.substr(begin + kUnderline.size(), image_at - begin - kUnderline.size());
    Text fonts;
    if (!TakeFontTags(label, fonts, 12, true) || label.find(u'>') != Text::npos) break;
    RemoveEach(label, {u" &lt;", u"&lt;", u"&lt", u"&l"});
    TextView source;
    if (!FileOf(TextView(page).substr(image_at, end - image_at), source)) break;
    if (fonts.empty() && label.empty()) break;
    const Text file(source);
    const Text run = label + u" <img border=\"0\" src=\"" + file + u"\">";
    const std::size_t changed_from =
        LinkRun(page, run, fonts, u"<u><a href=\"" + file + u"\">" + run + u"</a></u>");
    // A repair that changes nothing would change nothing the next time either.
    if (changed_from == kNowhere) break;
    endings.ChangedFrom(changed_from);
  }
  return page;
}

}  // namespace quillary::links

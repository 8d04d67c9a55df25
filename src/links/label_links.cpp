#include "links/label_links.h"

#include <algorithm>
#include <array>

#include "links/picture_links.h"
#include "links/underlined_label.h"
#include "text/search.h"

namespace quillary::links {
namespace {

constexpr TextView kAnchorRunEnd = u"</a>&gt;</u>";
constexpr TextView kLinkRunEnd = u"&gt;</u><font COLOR=\"#000000\">";
constexpr TextView kBlue = u"<font COLOR=\"#0000ff\">";

/// An underlined run in front of its end: "<u>", fonts, label and, from the
/// opening bracket on, the target in whatever form.
struct Run {
  std::size_t begin = 0;
  Text fonts;
  Text label;
  Text target;
};

// Finds the run that ends at `end` and whose target begins with `opening`.
// False where there is none that can be repaired.
bool ReadRun(const Text& page, std::size_t end, TextView opening, int most_fonts, bool drop_blue, Run& run) {
  run.begin = LastWithin(page, 0, end, kUnderline);
  if (run.begin == kNowhere) return false;
  const std::size_t target = LastWithin(page, run.begin, end, opening);
  if (target == kNowhere) return false;
  run.target = page.substr(target, end - target);
  // With the first three units of the bracket, which go with the others.
  run.label = page.substr(run.begin + kUnderline.size(), target - run.begin);
  if (!TakeFontTags(run.label, run.fonts, most_fonts, drop_blue)) return false;
  return run.label.find(u'>') == Text::npos && run.label.find(u"&l") != Text::npos;
}

// What stands between href=" and the next double quote.
TextView HrefOf(TextView anchor) {
  constexpr TextView kHref = u"href=\"";
  const std::size_t begin = anchor.find(kHref);
  if (begin == TextView::npos) return {};
  const TextView target = anchor.substr(begin + kHref.size());
  const std::size_t end = target.find(u'"');
  return end == TextView::npos ? TextView() : target.substr(0, end);
}

// Turns the runs with this anchor into anchors with the run's label. The anchor
// ends with the page's first end of such a run, so nothing in front of the run
// can match, and nothing after it unless the anchor stands there again.
bool MoveLabelIntoAnchor(Text& page, std::size_t end, const Run& run, TextView href,
                         std::size_t& changed_from) {
  const TextView anchor = run.target;
  const Text linked = Joined({u"<u><a href=\"", href, u"\">", TrimView(run.label), u"</a></u>"});
  const Text linked_in_fonts = run.fonts + linked;
  const std::array<Text, 3> finds = {Joined({kUnderline, run.fonts, kBlue, run.label, anchor}),
                                     Joined({kBlue, kUnderline, run.label, anchor}),
                                     Joined({kUnderline, run.fonts, run.label, anchor})};
  changed_from = end - std::min(end, std::max(finds[0].size(), finds[1].size()));
  const bool again = Finder(anchor, Compare::IgnoreCase).Next(page, end) != Finder::npos;
  // The last pair is the third find once more, with the fonts dropped.
  const std::array<std::pair<const Text*, const Text*>, 4> pairs = {{{&finds[0], &linked_in_fonts},
                                                                     {&finds[1], &linked},
                                                                     {&finds[2], &linked_in_fonts},
                                                                     {&finds[2], &linked}}};
  bool changed = false;
  for (const auto& [find, with] : pairs) {
    const Replacements replaced =
        ReplaceWithin(page, *find, *with, Compare::IgnoreCase, changed_from, again ? kNowhere : end);
    changed = changed || replaced.count > 0;
    if (changed && !again) break;
  }
  return changed;
}

}  // namespace

Text RepairLabelAnchors(TextView html) {
  Text page(html);
  const Finder run_ends(kAnchorRunEnd, Compare::IgnoreCase);
  std::size_t from = 0;
  for (int repair = 0; repair < kMostRepairs; ++repair) {
    const std::size_t hit = run_ends.Next(page, from);
    if (hit == Finder::npos) break;
    const std::size_t end = hit + kAnchorRunEnd.size();
    Run run;
    if (!ReadRun(page, end, u"&lt;<a ", 12, true, run)) return page;
    RemoveEach(run.label, {u" &lt;", u"&lt;", u"&lt", u"&l"});
    const TextView href = HrefOf(run.target);
    if (href.empty()) return page;
    if (run.fonts.empty() && run.label.empty()) break;
    // A repair that changes nothing would change nothing the next time either.
    if (!MoveLabelIntoAnchor(page, end, run, href, from)) break;
  }
  for (const TextView ending : kPictureEndings) {
    if (Holds(page, ending)) return RepairPictureLinks(page);
  }
  return page;
}

Text RepairLabelLinks(TextView html) {
  Text page(html);
  const Finder run_ends(kLinkRunEnd, Compare::IgnoreCase);
  std::size_t from = 0;
  for (int repair = 0; repair < kMostRepairs; ++repair) {
    const std::size_t hit = run_ends.Next(page, from);
    if (hit == Finder::npos) break;
    Run run;
    if (!ReadRun(page, hit + 4, u"&lt;", 10, false, run)) break;
    RemoveEach(run.label, {u" &lt;", u" &lt", u"&lt;", u"&lt", u"&l"});
    RemoveEach(run.target,
               {u" &lt;", u" &lt", u"&lt;", u"&lt", u"&l", u" &gt;", u" &gt", u"&gt;", u"&gt", u"&g"});
    const TextView target = TrimView(run.target);
    if (target.find(u'.') == TextView::npos) break;
    const Replacements replaced = ReplaceWithin(
        page, Joined({kUnderline, run.fonts, run.label, u" &lt;", target, u"&gt;"}),
        Joined({kUnderline, run.fonts, u"<a href=\"", target, u"\">", TrimView(run.label), u"</a></u>"}),
        Compare::IgnoreCase);
    if (replaced.count == 0) break;
    // No other run ends before the first change, and none reaches into it.
    from = std::min(run.begin, replaced.first);
  }
  return page;
}

void RepairLabelAnchors(rules::Rewriting& page) {
  const auto held = [&](TextView ending) { return page.Holds(ending, Compare::Binary); };
  if (page.Holds(kAnchorRunEnd, Compare::IgnoreCase) || std::ranges::any_of(kPictureEndings, held)) {
    page.Assign(RepairLabelAnchors(page.text()));
  }
}

void RepairLabelLinks(rules::Rewriting& page) {
  if (page.Holds(kLinkRunEnd, Compare::IgnoreCase)) page.Assign(RepairLabelLinks(page.text()));
}

}  // namespace quillary::links

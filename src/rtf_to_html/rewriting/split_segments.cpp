#include "rtf_to_html/rewriting/split_segments.h"

#include <algorithm>
#include <limits>

#include "rules/sentinels.h"
#include "text/search.h"

namespace quillary::modQuillary {
namespace {

bool IsShortFontWord(TextView word) {
  return word.size() >= 3 && word.size() < 5 && word.starts_with(u"\\f") && IsNumeric(word.substr(2));
}

// An escaped backslash followed by letters must not read as a control word.
void HideEscapedWords(Text& segment) {
  ReplaceIn(segment, u"\\\\tab", sentinels::hidden_tab, Compare::IgnoreCase);
  ReplaceIn(segment, u"\\\\pard\\\\", sentinels::hidden_pard_of_segment, Compare::IgnoreCase);
}

// Takes out the group that says where lines may break in Far Eastern text. A
// group that holds anything else stays; the two words of its own are disguised,
// so that their letters are not taken for something else.
void RemoveLineBreakingGroup(Text& segment) {
  const std::int32_t start = FindText(1, segment, u"{\\*\\lchars $([\\{\\'");
  if (start <= 2) return;
  const std::int32_t end = FindText(start, segment, u"}}");
  if (end == 0) return;
  Text group = Mid(segment, start, end - start + 2);
  ReplaceIn(group, u"{\\*\\fchars ", u"{\\*\\xchars", Compare::Binary, 1);
  ReplaceIn(group, u"{\\*\\lchars ", u"{\\*\\zchars", Compare::Binary, 1);
  constexpr TextView kForeign[] = {u" ", u"\\v", u"\\p", u"\\u", u"\\c", u"\\l", u"\\b", u"\\f"};
  if (std::ranges::any_of(kForeign, [&](TextView word) { return Holds(group, word); })) return;
  ReplaceIn(group, u"{\\*\\xchars", u"{\\*\\fchars ", Compare::Binary, 1);
  ReplaceIn(group, u"{\\*\\zchars", u"{\\*\\lchars ", Compare::Binary, 1);
  ReplaceIn(segment, group, u"", Compare::Binary, 1);
}

// A font word set just before the end of a segment, which the "\plain" that
// follows would lose; empty if there is none.
Text FontAtEnd(TextView segment) {
  if (segment.size() < 13) return {};
  Text end = Right(segment, 11);
  if (!Holds(end, u"\\par") || !Holds(end, u"\\f")) return {};
  for (const TextView piece : {u"\\par", u" ", u".", u"\r\n", u"\r", u"\n", u"\f", u" ", u" "}) {
    ReplaceIn(end, piece, u"", Compare::Binary, 1);
  }
  return IsShortFontWord(end) ? end : Text();
}

}  // namespace

void SplitSegments(Apartment& apartment, TextView text, const std::function<void(Text&)>& hand_over) {
  RtfToHtmlState& state = apartment.rtf_to_html;
  const Finder plain(u"\\plain\\", Compare::Binary);
  std::size_t start = static_cast<std::size_t>(std::max<std::int32_t>(state.BodyStart, 1)) - 1;
  Text carried_font;
  while (true) {
    apartment.stopped_short.segments = state.SegmentIndex == std::numeric_limits<std::int16_t>::max();
    ++state.SegmentIndex;
    const std::size_t end = plain.Next(text, start);
    const bool last = end == Finder::npos;
    Text segment(start < text.size() ? text.substr(start, last ? Finder::npos : end - start) : TextView());

    HideEscapedWords(segment);
    RemoveLineBreakingGroup(segment);
    if (carried_font.size() > 2) {
      ReplaceIn(segment, u"plain\\pard\\", u"plain\\pard" + carried_font + u"\\", Compare::Binary, 1);
    }
    carried_font = FontAtEnd(segment);
    // A font that is not stated must not take over a foreign charset.
    constexpr TextView kLeftToRight = u"plain\\pard\\ltrpar\\ ";
    if (state.ForeignCharsets && segment.size() > 25 && segment.starts_with(kLeftToRight)) {
      segment.replace(0, kLeftToRight.size(), u"plain\\pard\\ltrpar\\f0\\ ");
    }

    hand_over(segment);
    if (last) return;
    start = end + 1;
  }
}

}  // namespace quillary::modQuillary

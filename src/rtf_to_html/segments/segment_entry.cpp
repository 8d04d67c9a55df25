#include "rtf_to_html/segments/segment_entry.h"

#include <algorithm>
#include <limits>

#include "rtf_to_html/segments/hex_escapes.h"
#include "rtf_to_html/segments/segment.h"
#include "rtf_to_html/segments/segment_brace_groups.h"
#include "rtf_to_html/segments/segment_entry.rules.h"
#include "rules/run.h"
#include "rules/sentinels.h"
#include "text/failure.h"

namespace quillary::modQuillary {
namespace {

constexpr Compare kIgnoreCase = Compare::IgnoreCase;

// Short segments count only after the first long one: the counter stays 0
// through the run of empty segments at the start of a document.
void CountLongSegment(RtfToHtmlState& state, TextView segment) {
  constexpr std::size_t kLongUnits = 7;
  if (segment.size() < kLongUnits && state.LongSegments < 1) return;
  if (state.LongSegments < std::numeric_limits<std::int16_t>::max()) ++state.LongSegments;
}

// A picture that is the whole of a right-aligned run ends in a sentinel of its own.
void MarkRightAlignedPicture(Text& segment) {
  constexpr std::int32_t kReach = 25;
  const std::int32_t aligned = FindText(1, segment, u"\\qr\\", kIgnoreCase);
  if (aligned == 0) return;
  const std::int32_t space = FindText(aligned, segment, u" ");
  if (space == 0 || !Holds(MidView(segment, space, kReach), sentinels::picture_start, kIgnoreCase)) return;
  ReplaceIn(segment, Text(sentinels::picture_end) + u" ", sentinels::picture_end_right_aligned, kIgnoreCase,
            1);
}

// Takes out what lies from `opening` to the first `closing` after it, the
// first unit of that included.
void RemoveOnce(Text& segment, TextView opening, TextView closing) {
  const std::int32_t from = FindText(1, segment, opening, kIgnoreCase);
  if (from == 0) return;
  const std::int32_t to = FindText(from, segment, closing);
  if (to > 0) segment.erase(static_cast<std::size_t>(from) - 1, static_cast<std::size_t>(to - from) + 1);
}

// Lists of characters that must not begin or end a line: one group of each
// kind a segment.
void RemoveLineBreakingGroups(Text& segment) {
  if (segment.find(u'{') == Text::npos) return;
  RemoveOnce(segment, u"{\\*\\lchars ([\\'", u"}");
  RemoveOnce(segment, u"{\\*\\fchars ", u"}");
}

// A picture beyond the limit of pictures, and objects without a picture; of the
// two braces at the end of an object the second stays.
void RemovePictureAndObjects(Text& segment) {
  if (segment.find(u'{') == Text::npos) return;
  RemoveOnce(segment, u"{\\pict\\", u"}");
  RemoveOnce(segment, u"{\\object\\objemb{", u"}}");
  RemoveOnce(segment, u"{\\object\\", u"}}");
}

void RepairSegment(Apartment& apartment, Text& segment) {
  MarkRightAlignedPicture(segment);
  rules::Rewriting text = StartRewriting(apartment, std::move(segment));
  rules::Run(chains::SegmentEntryRepairs, text);
  segment = text.Take();
  RemoveLineBreakingGroups(segment);
}

// The first space, as far as it can be reached by 16 bits; beyond, what was
// taken before stays.
void TakeSplit(Segment& segment, TextView text) {
  const std::size_t space = text.find(u' ');
  if (space == TextView::npos) {
    segment.splitAt = 0;
  } else if (space < std::numeric_limits<std::int16_t>::max()) {
    segment.splitAt = static_cast<std::int16_t>(space + 1);
  }
}

// The escapes of a document with foreign fonts must lie in the body.
void SeparateFirstEscape(const RtfToHtmlState& state, Segment& segment) {
  if (!state.ForeignCharsets) return;
  const std::size_t escape = segment.segment.find(u"\\'");
  if (escape == Text::npos || segment.segment.find(u' ') < escape) return;
  segment.segment.insert(escape, 1, u' ');
  TakeSplit(segment, segment.segment);
}

// How the entry goes on after the split.
enum class Cut : std::uint8_t { Dropped, HeadIsAll, AfterRepairs, AtOnce };

// The start of a document body without text: all words are head words.
Cut HeadOfDocumentStart(Apartment& apartment, Segment& segment) {
  rules::Rewriting text = StartRewriting(apartment, std::move(segment.segment));
  rules::Run(chains::SegmentDocumentStart, text);
  segment.segment = text.Take();
  TakeSplit(segment, segment.segment);
  if (segment.splitAt < 1) return Cut::Dropped;
  segment.head = Trim(MidView(segment.segment, segment.splitAt));
  return Cut::HeadIsAll;
}

Cut SplitWithoutSpace(Apartment& apartment, Segment& segment) {
  Text& text = segment.segment;
  if (FindText(1, text, u"plain\\pard\\", kIgnoreCase) != 1) return HeadOfDocumentStart(apartment, segment);
  if (text.find(u' ') != Text::npos) {  // out of the reach of splitAt
    ReplaceIn(text, sentinels::bullet, u"<li>", kIgnoreCase);
    return Cut::AfterRepairs;
  }
  if (text.find(u"\\'") != Text::npos) {
    Attempt([&] { segment.head = DecodeHexEscapes(apartment, text, text); });
    if (segment.head != text) {
      ReplaceIn(text, u"\\'", u" \\'", kIgnoreCase);
      TakeSplit(segment, text);
      return Cut::AtOnce;
    }
  }
  segment.head = text;
  if (text.find(u"<br>") == Text::npos) return Cut::HeadIsAll;
  rules::Rewriting head = StartRewriting(apartment, std::move(segment.head));
  rules::Run(chains::SegmentHeadBreaks, head);
  segment.head = head.Take();
  TakeSplit(segment, segment.head);
  return Cut::AfterRepairs;
}

// Trailing text in the closing group of the document.
bool EndsInClosingGroup(TextView segment) {
  constexpr TextView kParagraph = u"\\par }";
  if (!segment.ends_with(u" }")) return false;
  return segment.size() < kParagraph.size() ||
         !Equal(segment.substr(segment.size() - kParagraph.size()), kParagraph, kIgnoreCase);
}

// The segment up to the split and with it, in which a pair of units that is
// found begins ahead of the split.
TextView AheadOfSplit(const Segment& segment) {
  return TextView(segment.segment).substr(0, static_cast<std::size_t>(segment.splitAt));
}

// An escape ahead of the split begins the body, and no unit is lost there.
bool CutAtEscape(Segment& segment) {
  const std::size_t escape = AheadOfSplit(segment).find(u"\\'");
  if (escape == TextView::npos) return false;
  segment.head.assign(segment.segment, 0, escape);
  segment.body.assign(segment.segment, escape, Text::npos);
  return true;
}

void SplitAtEscapedBrace(Segment& segment) {
  const std::size_t brace = AheadOfSplit(segment).find(u"\\{");
  if (brace != TextView::npos) segment.splitAt = static_cast<std::int16_t>(brace + 1);
}

void CutAtSplit(Segment& segment) {
  const auto split = static_cast<std::size_t>(segment.splitAt);
  if (split > 0) segment.head.assign(segment.segment, 0, split - 1);
  const TextView body = TextView(segment.segment).substr(std::min(split, segment.segment.size()));
  segment.body.reserve(body.size() + body.size() / 8);  // it grows
  segment.body = body;
  // The line break of a padded head lies across the cut.
  if (Equal(MidView(segment.body, 1, 3), u"br>", kIgnoreCase)) segment.body.insert(0, 1, u'<');
}

// Text after a Unicode word of the head belongs into the body, and a colour
// that was set ahead of it must reach that text.
void MoveTextAfterUnicodeWord(Segment& segment) {
  Text& head = segment.head;
  const std::size_t word = head.rfind(u"\\u");
  if (word == Text::npos) return;
  const std::size_t end = head.find(u'?', word);
  if (end == Text::npos) return;
  segment.body.insert(0, TextView(head).substr(end + 1)).insert(head.size() - end - 1, 1, u' ');
  head.resize(end + 1);
  if (Holds(head, u"?\\u", kIgnoreCase)) return;
  for (int colour = 1; colour <= 6; ++colour) {
    const Text set = u"\\cf" + Decimal(colour);
    if (ReplaceIn(head, set, u"", kIgnoreCase)) segment.body.insert(0, set + u" ");
  }
}

// The first segments get the first font unless they name one. Once a font word
// was seen, the index jumps and the rule is done with.
void GiveFirstFont(RtfToHtmlState& state, Text& head) {
  while (state.SegmentIndex < 3 && head.size() > 1) {
    if (Holds(head, u"\\f0", kIgnoreCase) || Holds(head, u"\\f1", kIgnoreCase) ||
        Holds(head, u"\\f2", kIgnoreCase)) {
      state.SegmentIndex = 5;
    } else {
      head += u"\\f0";
    }
  }
}

// A run of control words at the end of the body, after a closing brace.
void CutTail(Text& body) {
  constexpr std::size_t kLook = 10;
  constexpr std::size_t kReach = 80;
  const TextView end = TextView(body).substr(body.size() - std::min(body.size(), kLook));
  if (end.find(u'}') == TextView::npos || end.find(u'\\') == TextView::npos) return;
  for (const TextView escaped : {u"\\\\", u"\\}", u"\\{"}) {
    if (end.find(escaped) != TextView::npos) return;
  }
  const std::size_t space = body.rfind(u' ');
  if (space != Text::npos && body.size() - space <= kReach) body.resize(space + 1);
}

// Everything between the split and the brace groups. Returns whether the
// segment goes on.
bool CutSegment(RtfToHtmlState& state, Segment& segment, Cut cut) {
  if (cut == Cut::AfterRepairs) {
    if (EndsInClosingGroup(segment.segment)) return false;
    RemovePictureAndObjects(segment.segment);
    if (CutAtEscape(segment)) return true;
    SplitAtEscapedBrace(segment);
  }
  CutAtSplit(segment);
  MoveTextAfterUnicodeWord(segment);
  GiveFirstFont(state, segment.head);
  return true;
}

}  // namespace

void CloseCentre(RtfToHtmlState& state, TextView segment) {
  if (!state.CentreOpen) return;
  if (segment.find(u"\\pard\\") == TextView::npos && segment.find(u"\\pard{") == TextView::npos) return;
  state.HtmlOut.Edit() += u"</CENTER>";
  state.CentreOpen = false;
}

Road EnterSegment(Apartment& apartment, Segment& segment) {
  RtfToHtmlState& state = apartment.rtf_to_html;
  YieldToHost();
  CountLongSegment(state, segment.segment);
  RepairSegment(apartment, segment.segment);
  TakeSplit(segment, segment.segment);
  SeparateFirstEscape(state, segment);
  Cut cut = Cut::AfterRepairs;
  if (segment.splitAt == 0) cut = SplitWithoutSpace(apartment, segment);
  if (cut == Cut::Dropped) return Road::Dropped;
  if (cut == Cut::HeadIsAll) return Road::Head;
  if (!CutSegment(state, segment, cut)) return Road::Dropped;
  RemoveBraceGroups(state, segment.body);
  CloseCentre(state, segment.segment);
  if (segment.body.size() < 2) return Road::Head;
  CutTail(segment.body);
  return Road::Body;
}

}  // namespace quillary::modQuillary

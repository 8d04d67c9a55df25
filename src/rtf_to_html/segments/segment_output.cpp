#include "rtf_to_html/segments/segment_output.h"

#include <algorithm>

#include "rtf_to_html/segments/segment.h"
#include "rules/sentinels.h"
#include "text/ascii.h"
#include "text/failure.h"

namespace quillary::modQuillary {
namespace {

bool IsUnicodeWord(TextView word) {
  const std::int32_t start = FindText(1, word, u"\\u", Compare::IgnoreCase);
  const TextView after = start == 0 ? TextView() : MidView(word, start + 2, 1);
  return !after.empty() && (after[0] == u'-' || IsAsciiDigit(after[0]));
}

// A Unicode word, with the text after it up to the space, as references; empty
// if other words are mixed in.
Text ReferencesFor(TextView word) {
  Text references(word);
  ReplaceIn(references, u"?\\u", u";&#", Compare::IgnoreCase);
  ReplaceIn(references, u"\\u", u"&#", Compare::IgnoreCase);
  ReplaceIn(references, u"?", u";");
  if (references.find(u'\\') != Text::npos) references.clear();
  return references;
}

// Drops every control word with what stands after it, up to the next space,
// closing brace or tag; Unicode words become references, which are as long. All
// stays in its place: what is done with moves up to the front.
void DropControlWords(Text& body, TextView opening) {
  std::size_t start = body.find(u'\\');
  if (start == Text::npos) return;
  const bool references_ahead = opening.find(u"&#") != TextView::npos;
  const std::size_t last_end = body.find_last_of(u" }");
  std::size_t written = 0;
  std::size_t at = 0;
  std::size_t spaces = 0;  // due in front of the body
  const auto keep = [&](const char16_t* units, std::size_t count) {
    if (body.data() + written != units) std::char_traits<char16_t>::move(body.data() + written, units, count);
    written += count;
  };
  for (; start != Text::npos; start = body.find(u'\\', at)) {
    keep(body.data() + at, start - at);
    if (last_end == Text::npos || last_end < start) {
      at = body.size();  // all from the word on is lost
      break;
    }
    at = body.find_first_of(u" }<", start);
    if (body[at] != u'<') ++at;
    const TextView word = TextView(body).substr(start, at - start);
    if (!IsUnicodeWord(word)) continue;
    const Text references = ReferencesFor(word);
    if (references.empty()) continue;
    spaces += references_ahead && Equal(word.substr(0, 2), u"\\u", Compare::IgnoreCase);
    keep(references.data(), references.size());
  }
  keep(body.data() + at, body.size() - at);
  body.resize(written);
  body.insert(0, spaces, u' ');
}

void FinishBody(const RtfToHtmlState& state, Text& body, TextView opening) {
  DropControlWords(body, opening);
  ReplaceIn(body, u"$([}", u"", Compare::Binary, 1);
  ReplaceIn(body, sentinels::backslash, u"\\", Compare::IgnoreCase);
  if (state.LongSegments < 2 && body.starts_with(u' ')) body.replace(0, 1, u"&nbsp;");
}

// A single list item opens at the start of its paragraph, but not right after
// the body tag of the document. Returns whether it is to be put in front.
bool MoveListItem(const RtfToHtmlState& state, Text& body) {
  constexpr std::size_t kBodyTagReach = 24;
  const std::size_t item = body.find(u"<li>");
  if (item == Text::npos || item == 0 || body.find(u"<li>", item + 1) != Text::npos) return false;
  for (const TextView in_place :
       {u"<br><li>", u"<br> <li>", u"<br> <ul><li>", u"<br> <ul> <li>", u"<br> </CENTER> <ul><li>",
        u"<br> </CENTER> <li>", u"<br> </CENTER><li>"}) {
    if (body.find(in_place) != Text::npos) return false;
  }
  body.erase(item, 4);
  const TextView page = state.HtmlOut.text();
  const TextView end = page.substr(page.size() - std::min(page.size(), kBodyTagReach));
  return end.find(u"<BODY BGCOLOR=") == TextView::npos;
}

// Where the body is by far the longest piece, the rest is put around it.
void AppendRun(Text& page, const Text& front, Text& body, const Text& end) {
  constexpr std::size_t kLongUnits = 65536;
  if (body.size() < kLongUnits || body.size() / 4 < page.size() + front.size()) {
    page.append(front).append(body).append(end);
    return;
  }
  body.insert(0, page.append(front));
  body.append(end);
  page = std::move(body);
}

void WriteRun(RtfToHtmlState& state, const Segment& segment, Text& body) {
  Text front = segment.opening;
  Text end;
  if (!segment.attributes.empty()) {
    const bool item_in_front = MoveListItem(state, body);
    front.append(u"<font ").append(segment.attributes).append(u">");
    if (item_in_front) front.append(u"<li>");
    end = u"</font>";
  }
  AppendRun(state.HtmlOut.Edit(), front.append(state.CarriedIndent), body, end.append(segment.closing));
}

// Where the last `name` of the page begins. What was searched before is not
// searched again.
std::size_t LastOnPage(TextView page, TextView name, WrittenAttribute& known) {
  if (known.searched > page.size()) known = {};
  const std::size_t again = known.searched - std::min(known.searched, name.size() - 1);
  const std::int32_t found = LastPosition(page.substr(again), name);
  if (found > 0) known.at = again + static_cast<std::size_t>(found) - 1;
  known.searched = page.size();
  return known.at;
}

// The running values are those that were written last, be it by a word of the
// head or of the body. What was never written stays as it is.
void TakeRunningValues(RtfToHtmlState& state) {
  const TextView page = state.HtmlOut.text();
  constexpr TextView kColour = u" COLOR=";
  constexpr TextView kSize = u" SIZE=";
  constexpr TextView kFace = u" FACE=";
  const std::size_t colour_at = LastOnPage(page, kColour, state.WrittenColour);
  if (colour_at != TextView::npos) {
    state.CurrentColour = Trim(MidView(page, static_cast<std::int32_t>(colour_at + kColour.size()) + 2, 7));
  }
  const std::size_t size_at = LastOnPage(page, kSize, state.WrittenSize);
  if (size_at != TextView::npos) {
    state.CurrentSize =
        ReplaceAll(MidView(page, static_cast<std::int32_t>(size_at + kSize.size()) + 2, 2), u"\"", u"");
  }
  const std::size_t face_at = LastOnPage(page, kFace, state.WrittenFace);
  if (face_at != TextView::npos) {
    const std::size_t from = face_at + kFace.size() + 1;
    const std::size_t to = page.find(u'"', from);
    if (to != TextView::npos) state.CurrentFace = page.substr(from, to - from);
  }
}

}  // namespace

void WriteSegment(Apartment& apartment, Segment& segment, Text body) {
  RtfToHtmlState& state = apartment.rtf_to_html;
  FinishBody(state, body, segment.opening);
  WriteRun(state, segment, body);
  CheckGrowth(apartment, state.HtmlOut.text());
  if (segment.hadFontWord) TakeRunningValues(state);
  state.CarriedIndent = std::move(state.PendingIndent);
  state.PendingIndent.clear();
}

}  // namespace quillary::modQuillary

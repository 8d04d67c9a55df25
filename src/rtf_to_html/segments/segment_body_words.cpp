#include "rtf_to_html/segments/segment_body_words.h"

#include "rtf_to_html/segments/segment.h"
#include "rtf_to_html/segments/segment_body_words.rules.h"
#include "rules/run.h"
#include "text/search.h"

namespace quillary::modQuillary {
namespace {

constexpr Compare kIgnoreCase = Compare::IgnoreCase;

// Where the language word at `word` ends: at the first backslash or space at
// or after `from`, both 0-based.
std::size_t EndOfLanguageWord(TextView text, std::size_t from) { return text.find_first_of(u"\\ ", from); }

bool EndsIn(TextView text, TextView end) {
  return text.size() >= end.size() && Equal(text.substr(text.size() - end.size()), end, kIgnoreCase);
}

}  // namespace

/// As long as a paragraph mark has a language word after it, the first
/// language word after a space goes, wherever it stands; the space stays.
void RemoveLanguageWordsAfterSpaces(rules::Rewriting& text) {
  constexpr TextView kWordAfterParagraph = u"\\par \\lang";
  if (!text.Holds(kWordAfterParagraph, kIgnoreCase)) return;
  const TextView body = text.text();
  const Finder word(u" \\lang", kIgnoreCase);
  std::size_t last_paragraph = static_cast<std::size_t>(LastPosition(body, kWordAfterParagraph, kIgnoreCase));
  Text done;
  std::size_t at = 0;
  // What was deleted may bring a word up to a space that was passed already.
  bool joined = false;
  while (last_paragraph > at || joined) {
    if (!joined) {
      const std::size_t space = word.Next(body, at);
      if (space == Finder::npos) break;
      done.append(body, at, space + 1 - at);
      at = space + 1;
    }
    const std::size_t end = EndOfLanguageWord(body, at + 3);
    if (end == TextView::npos) break;
    at = end;
    const bool word_follows = Equal(body.substr(at, 5), u"\\lang", kIgnoreCase);
    joined = word_follows && (last_paragraph > at || EndsIn(done, u"\\par "));
  }
  done.append(body, at, TextView::npos);
  text.Assign(std::move(done));
}

/// Every other language word goes, up to its number's end.
void RemoveLanguageWords(rules::Rewriting& text) {
  if (!text.Holds(u"\\lang", kIgnoreCase)) return;
  const TextView body = text.text();
  const Finder word(u"\\lang", kIgnoreCase);
  Text done;
  std::size_t at = 0;
  for (;;) {
    const std::size_t start = word.Next(body, at);
    if (start == Finder::npos) break;
    const std::size_t end = EndOfLanguageWord(body, start + 3);
    if (end == TextView::npos) break;
    done.append(body, at, start - at);
    at = end;
  }
  done.append(body, at, TextView::npos);
  text.Assign(std::move(done));
}

/// The automatic colour counts as a colour that was asked for.
void MakeColourExplicit(rules::Rewriting&, RtfToHtmlState& state) { state.ColourExplicit = true; }

void ReplaceBodyWords(RtfToHtmlState& state, rules::Rewriting& body, TextView head) {
  rules::Run(chains::SegmentWords, body, state);
  const bool tab_stops = Holds(head, u"\\tx", kIgnoreCase);
  rules::RunStage(chains::SegmentTabs,
                  tab_stops ? chains::SegmentTabs_stages::tab_stops : chains::SegmentTabs_stages::plain_tabs,
                  body);
  rules::Run(chains::SegmentWordsBack, body);
}

}  // namespace quillary::modQuillary

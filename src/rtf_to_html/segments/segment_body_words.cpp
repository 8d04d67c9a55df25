// The control words that can stand in running text.
#include "rtf_to_html/segments/segment.h"
#include "rtf_to_html/segments/segment_body_words.rules.h"
#include "rules/run.h"
#include "text/search.h"

namespace quillary::modQuillary {
namespace {

constexpr Compare ignore_case = Compare::IgnoreCase;

// Where the language word at `word` ends: at the first backslash or blank at
// or after `from`, both 0-based.
std::size_t EndOfLanguageWord(TextView text, std::size_t from) { return text.find_first_of(u"\\ ", from); }

bool EndsIn(TextView text, TextView end) {
  return text.size() >= end.size() && Equal(text.substr(text.size() - end.size()), end, ignore_case);
}

}  // namespace

/// As long as a paragraph mark has a language word behind it, the first
/// language word behind a blank goes, wherever it stands; the blank stays.
void RemoveLanguageWordsBehindBlanks(rules::Rewriting& text) {
  constexpr TextView marked = u"\\par \\lang";
  if (!text.Holds(marked, ignore_case)) return;
  const TextView body = text.text();
  const Finder word(u" \\lang", ignore_case);
  std::size_t last_marked = static_cast<std::size_t>(LastPosition(body, marked, ignore_case));
  Text done;
  std::size_t at = 0;
  // What was deleted may bring a word up to a blank that was passed already.
  bool joined = false;
  while (last_marked > at || joined) {
    if (!joined) {
      const std::size_t blank = word.Next(body, at);
      if (blank == Finder::npos) break;
      done.append(body, at, blank + 1 - at);
      at = blank + 1;
    }
    const std::size_t end = EndOfLanguageWord(body, at + 3);
    if (end == TextView::npos) break;
    at = end;
    const bool word_follows = Equal(body.substr(at, 5), u"\\lang", ignore_case);
    joined = word_follows && (last_marked > at || EndsIn(done, u"\\par "));
  }
  done.append(body, at, TextView::npos);
  text.Assign(std::move(done));
}

/// Every other language word goes, up to its number's end.
void RemoveLanguageWords(rules::Rewriting& text) {
  if (!text.Holds(u"\\lang", ignore_case)) return;
  const TextView body = text.text();
  const Finder word(u"\\lang", ignore_case);
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
  const bool tab_stops = Holds(head, u"\\tx", ignore_case);
  rules::RunStage(chains::SegmentTabs,
                  tab_stops ? chains::SegmentTabs_stages::tab_stops : chains::SegmentTabs_stages::plain_tabs,
                  body);
  rules::Run(chains::SegmentWordsBack, body);
}

}  // namespace quillary::modQuillary

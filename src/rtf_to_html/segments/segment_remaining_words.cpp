#include "rtf_to_html/segments/segment_remaining_words.h"

#include "rtf_to_html/segments/segment.h"
#include "rtf_to_html/segments/segment_font_words.h"
#include "rtf_to_html/segments/segment_remaining_words.rules.h"
#include "rtf_to_html/segments/segment_tables.h"
#include "rules/run.h"

namespace quillary::modQuillary {
namespace {

constexpr Compare kIgnoreCase = Compare::IgnoreCase;

// A word of alignment in the body counts only if it is the only one of its
// kind. Returns whether it was.
bool ReplaceOnlyWord(rules::Rewriting& body, TextView word, TextView tag) {
  if (!body.Holds(word, Compare::Binary)) return false;
  const bool alone = CountOccurrences(body.text(), word, kIgnoreCase) < 2;
  body.Replace(word, alone ? tag : TextView(), kIgnoreCase);
  return alone;
}

void ReplaceAlignment(RtfToHtmlState& state, rules::Rewriting& body, Text& closing) {
  rules::RunStage(chains::SegmentAlignment, chains::SegmentAlignment_stages::escaped_words, body);
  if (ReplaceOnlyWord(body, u"\\qc", u"<center>")) {
    body.Assign(body.text() + u"</center>");
    closing += u"</CENTER>";
    state.CentreOpen = false;
  }
  if (ReplaceOnlyWord(body, u"\\qr", u"<p align=\"right\">")) closing += u"</p>";
  rules::RunStage(chains::SegmentAlignment, chains::SegmentAlignment_stages::escaped_words_back, body);
}

}  // namespace

void ReplaceRemainingWords(RtfToHtmlState& state, Segment& segment, rules::Rewriting& body) {
  rules::Run(chains::SegmentLeftovers, body);
  ReplaceFontWords(state, segment, body);
  rules::Run(chains::SegmentRemainingWords, body);
  ReplaceAlignment(state, body, segment.closing);
  rules::Run(chains::SegmentShifts, body);
  ReplaceTableWords(body);
}

}  // namespace quillary::modQuillary

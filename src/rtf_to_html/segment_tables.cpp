// Rows and cells out of the words that are left in the body.
#include "rtf_to_html/segment.h"
#include "rtf_to_html/segment_tables.rules.h"
#include "rtf_to_html/translate_segment.h"
#include "rules/run.h"
#include "rules/sentinels.h"

namespace quillary::modQuillary {
namespace {

constexpr Compare ignore_case = Compare::IgnoreCase;
constexpr TextView width_word = u"\\cellx";

// The width that the word at `at` states, and whatever stands around it; 0-based.
Text WidthAt(TextView text, std::size_t at) {
  constexpr std::size_t longest = 15;
  std::size_t end = text.find(u'\\', at + 2);
  if (end != TextView::npos && end - at > longest) end = text.find(u' ', at + 2);
  Text width(text.substr(at, end == TextView::npos ? end : end - at));
  ReplaceIn(width, width_word, u"");
  ReplaceIn(width, width_word.substr(1), u"");
  ReplaceIn(width, u"\\", u"");
  ReplaceIn(width, u" ", u"");
  return width;
}

}  // namespace

Text MarkCellWidths(TextView text) {
  Text done;
  Text rest(text);
  for (std::size_t at = rest.find(width_word); at != Text::npos; at = rest.find(width_word)) {
    // Nothing in front of the first width word can change any more.
    done.append(rest, 0, at);
    rest.erase(0, at);
    const Text width = WidthAt(rest, 0);
    if (!IsNumeric(width)) break;
    ReplaceIn(rest, Text(width_word) + width, sentinels::cell_width_mark, ignore_case);
    if (rest.starts_with(width_word)) break;  // a blank stands inside the number
  }
  return done + rest;
}

void ReplaceTableWords(rules::Rewriting& body) {
  constexpr std::int32_t cells_of_small_rows = 3;
  if (body.Holds(width_word, ignore_case) &&
      CountOccurrences(body.text(), width_word, ignore_case) > cells_of_small_rows) {
    body.Assign(MarkCellWidths(body.text()));
    Text four_marks;
    for (int i = 0; i < 4; ++i) four_marks += sentinels::cell_width_mark;
    body.Replace(four_marks, u" <tr><td>", Compare::Binary, 1);
  }
  rules::Run(chains::SegmentTableRows, body);
  rules::Run(chains::SegmentRowSeams, body);
  rules::Run(chains::SegmentRowSeams, body);
  rules::Run(chains::SegmentTableEnds, body);
}

}  // namespace quillary::modQuillary

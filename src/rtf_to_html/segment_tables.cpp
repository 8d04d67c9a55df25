// Rows and cells out of the words that are left in the body.
#include <algorithm>
#include <vector>

#include "rtf_to_html/segment.h"
#include "rtf_to_html/segment_tables.rules.h"
#include "rtf_to_html/translate_segment.h"
#include "rules/run.h"
#include "rules/sentinels.h"
#include "text/search.h"

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

// The signs and digits behind every width word, sorted.
std::vector<TextView> AllWidths(TextView text) {
  std::vector<TextView> widths;
  const Finder word(width_word, ignore_case);
  for (std::size_t at = word.Next(text, 0); at != Finder::npos; at = word.Next(text, at + 1)) {
    const TextView behind = text.substr(at + width_word.size());
    widths.push_back(behind.substr(0, behind.find_first_not_of(u"0123456789.+-")));
  }
  std::sort(widths.begin(), widths.end());
  return widths;
}

// Whether more than one of the widths begins with `width`.
bool StandsTwice(const std::vector<TextView>& widths, TextView width) {
  const auto first = std::lower_bound(widths.begin(), widths.end(), width);
  return widths.end() - first > 1 && first[1].starts_with(width);
}

}  // namespace

Text MarkCellWidths(TextView text) {
  const std::vector<TextView> widths = AllWidths(text);
  Text done;
  Text rest(text);
  std::size_t from = 0;
  for (std::size_t at = rest.find(width_word); at != Text::npos; at = rest.find(width_word, from)) {
    const Text width = WidthAt(rest, at);
    if (!IsNumeric(width)) break;
    done.append(rest, from, at - from);
    const Text word = Text(width_word) + width;
    const bool stands_here = TextView(rest).substr(at).starts_with(word);
    if (stands_here && !StandsTwice(widths, width)) {
      done += sentinels::cell_width_mark;
      from = at + word.size();
      continue;
    }
    // In upper case the word may stand further ahead as well.
    rest = std::move(done.append(rest, at, Text::npos));
    done.clear();
    from = 0;
    ReplaceIn(rest, word, sentinels::cell_width_mark, ignore_case);
    if (!stands_here) break;  // a blank inside the number: it would be met for ever
  }
  return done.append(rest, from, Text::npos);
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

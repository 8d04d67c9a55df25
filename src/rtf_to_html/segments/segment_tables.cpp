#include "rtf_to_html/segments/segment_tables.h"

#include <algorithm>
#include <vector>

#include "rtf_to_html/segments/segment_tables.rules.h"
#include "rules/run.h"
#include "rules/sentinels.h"
#include "text/search.h"

namespace quillary::modQuillary {
namespace {

constexpr Compare kIgnoreCase = Compare::IgnoreCase;
constexpr TextView kWidthWord = u"\\cellx";

// What is left of a width word, and whatever stands around it, as a number.
Text WidthIn(TextView word) {
  Text width(word);
  ReplaceIn(width, kWidthWord, u"");
  ReplaceIn(width, kWidthWord.substr(1), u"");
  ReplaceIn(width, u"\\", u"");
  ReplaceIn(width, u" ", u"");
  return width;
}

/// The width words of a text, and which of them have become sentinels. A sentinel
/// begins with a backslash, as the word did, and never makes a word of what
/// stands around it.
class CellWidths {
 public:
  explicit CellWidths(TextView text) : text_(text) {
    const Finder word(kWidthWord, kIgnoreCase);
    for (std::size_t at = word.Next(text, 0); at != Finder::npos; at = word.Next(text, at + 1)) {
      const TextView after = text.substr(at + kWidthWord.size());
      words_.push_back({at, after.substr(0, after.find_first_not_of(u"0123456789.+-")), 0});
      by_width_.push_back(by_width_.size());
    }
    std::sort(by_width_.begin(), by_width_.end(), [this](std::size_t left, std::size_t right) {
      return words_[left].width < words_[right].width;
    });
  }

  Text Mark() {
    for (std::size_t word = 0; word < words_.size(); ++word) {
      const std::size_t at = words_[word].at;
      // A word in upper case is replaced only along with one that is not.
      if (words_[word].taken > 0 || text_.substr(at, kWidthWord.size()) != kWidthWord) continue;
      const Text width = WidthOf(word);
      if (!IsNumeric(width)) break;
      if (!words_[word].width.starts_with(width)) {
        // A space inside the number: the word would be met for ever.
        return ReplaceAll(WithSentinels(0, 0, text_.size()), Text(kWidthWord) + width,
                          sentinels::cell_width_mark, kIgnoreCase);
      }
      TakeAll(width);
    }
    return WithSentinels(0, 0, text_.size());
  }

 private:
  struct Word {
    std::size_t at;
    TextView width;     // the punctuation and digits after it
    std::size_t taken;  // so many units became the sentinel, 0 if none did
  };

  // The width ends at the next word, or at the next space if that is too far.
  Text WidthOf(std::size_t word) const {
    constexpr std::size_t kLongest = 15;
    const std::size_t at = words_[word].at;
    std::size_t end = text_.find(u'\\', at + 2);
    if (end != TextView::npos && end - at <= kLongest) return WidthIn(text_.substr(at, end - at));
    if (end != TextView::npos) end = text_.find(u' ', at + 2);
    return WidthIn(WithSentinels(word, at, std::min(end, text_.size())));
  }

  // Every word that begins with this width.
  void TakeAll(const Text& width) {
    auto next = std::lower_bound(
        by_width_.begin(), by_width_.end(), width,
        [this](std::size_t word, const Text& sought) { return words_[word].width < TextView(sought); });
    for (; next != by_width_.end() && words_[*next].width.starts_with(width); ++next) {
      Word& word = words_[*next];
      if (word.taken == 0) word.taken = kWidthWord.size() + width.size();
    }
  }

  // A stretch of the text with its sentinels, from the first word in it on.
  Text WithSentinels(std::size_t word, std::size_t from, std::size_t end) const {
    Text text;
    for (; word < words_.size() && words_[word].at < end; ++word) {
      if (words_[word].taken == 0) continue;
      text.append(text_.substr(from, words_[word].at - from)).append(sentinels::cell_width_mark);
      from = words_[word].at + words_[word].taken;
    }
    return text.append(text_.substr(from, end - from));
  }

  TextView text_;
  std::vector<Word> words_;
  std::vector<std::size_t> by_width_;
};

}  // namespace

Text MarkCellWidths(TextView text) { return CellWidths(text).Mark(); }

void ReplaceTableWords(rules::Rewriting& body) {
  constexpr std::int32_t kCellsOfSmallRows = 3;
  if (body.Holds(kWidthWord, kIgnoreCase) &&
      CountOccurrences(body.text(), kWidthWord, kIgnoreCase) > kCellsOfSmallRows) {
    body.Assign(MarkCellWidths(body.text()));
    Text four_sentinels;
    for (int i = 0; i < 4; ++i) four_sentinels += sentinels::cell_width_mark;
    body.Replace(four_sentinels, u" <tr><td>", Compare::Binary, 1);
  }
  rules::Run(chains::SegmentTableRows, body);
  rules::Run(chains::SegmentRowSeams, body);
  rules::Run(chains::SegmentRowSeams, body);
  rules::Run(chains::SegmentTableEnds, body);
}

}  // namespace quillary::modQuillary

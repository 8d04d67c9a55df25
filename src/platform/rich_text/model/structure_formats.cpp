#include "platform/rich_text/model/structure_formats.h"

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace quillary::platform::rtf {
namespace {

bool EndsCellRowOrParagraph(char16_t unit) {
  return unit <= structure::kParagraph &&
         (unit == structure::kCell || unit == structure::kRow || unit == structure::kParagraph);
}
bool IsEnd(char16_t unit) { return unit == structure::kParagraph || unit == structure::kCell; }

constexpr unsigned kCarried = kBold | kItalic | kUnderline;

/// What the page carries from one cell into all that follow in the row, and no
/// further: bold type, italics and underlines that some text of the row has
/// had. They go on over the ends of its cells, so that each cell ends them for
/// itself. At the end of the row they end if the text after it has them, whose
/// words then stand there again; else that text ends them. In front of a row
/// they end.
class CarriedEffects {
 public:
  CarriedEffects(const Document& document, const std::vector<Run>& runs) : document_(document), runs_(runs) {}

  void AddText(unsigned effects) {
    last_ = effects & kCarried;
    seen_ |= last_;
  }
  /// The effects of the end of a cell or paragraph at `at`, which has `own`. The
  /// unit after the row that it may end is in the run `after`.
  std::uint16_t AddEnd(std::size_t at, unsigned own, std::size_t after) {
    const bool ends_cell = document_.text[at] == structure::kCell;
    const bool ends_row = document_.text[at + (ends_cell ? 1 : 0)] == structure::kRow;
    unsigned carried = own & kCarried;
    if (ends_row) {
      carried = last_ & ~EffectsAt(at + (ends_cell ? 2 : 1), paragraph_ + 1, after);
    } else if (ends_cell) {
      carried = seen_;
    } else if (IsRow(paragraph_ + 1)) {
      carried = 0;
    }
    if (!ends_cell) {
      ++paragraph_;
      seen_ = 0;
      last_ = 0;
    }
    return static_cast<std::uint16_t>((own & ~kCarried) | carried);
  }

 private:
  const ParagraphFormat* FormatOf(std::size_t paragraph) const {
    if (paragraph >= document_.paragraphs.size()) return nullptr;
    return &document_.formats[document_.paragraphs[paragraph].format];
  }
  bool IsRow(std::size_t paragraph) const {
    const ParagraphFormat* const format = FormatOf(paragraph);
    return format != nullptr && format->row != 0;
  }
  bool IsItem(std::size_t paragraph) const {
    const ParagraphFormat* const format = FormatOf(paragraph);
    return format != nullptr && format->list != 0;
  }
  /// The effects that will be in force at the start of a paragraph. The end of
  /// an empty one keeps in front of an item only those that the item has.
  unsigned EffectsAt(std::size_t at, std::size_t paragraph, std::size_t run) const {
    unsigned effects = kCarried;
    for (; at < document_.text.size(); ++at, ++paragraph) {
      while (run + 1 < runs_.size() && runs_[run + 1].begin <= at) ++run;
      const char16_t unit = document_.text[at];
      if (unit == structure::kCell || (unit == structure::kParagraph && IsRow(paragraph + 1))) return 0;
      effects &= document_.characters[runs_[run].format].effects;
      if (unit != structure::kParagraph || !IsItem(paragraph + 1)) return effects;
    }
    return 0;
  }

  const Document& document_;
  const std::vector<Run>& runs_;
  std::size_t paragraph_ = 0;
  unsigned seen_ = 0;  // in the row
  unsigned last_ = 0;  // of the row's last text
};

void CarryEffectsOverCells(Document& document) {
  const std::vector<Run> runs = std::move(document.runs);
  document.runs = {};
  const auto add = [&](std::size_t begin, std::uint32_t format) {
    if (document.runs.empty() || document.runs.back().format != format)
      document.runs.push_back({begin, format});
  };
  CarriedEffects carried(document, runs);
  std::size_t after = 0;  // the run of the unit after a row
  for (std::size_t index = 0; index < runs.size(); ++index) {
    const std::uint32_t own = runs[index].format;
    const std::size_t end = index + 1 < runs.size() ? runs[index + 1].begin : document.text.size();
    for (std::size_t at = runs[index].begin;; ++at) {
      std::size_t stop = at;
      while (stop < end && !EndsCellRowOrParagraph(document.text[stop])) ++stop;
      if (stop > at) {
        carried.AddText(document.characters[own].effects);
        add(at, own);
      }
      if (stop == end) break;
      const std::size_t next = stop + (document.text[stop] == structure::kCell ? 2 : 1);
      while (after + 1 < runs.size() && runs[after + 1].begin <= next) ++after;
      CharacterFormat format = document.characters[own];
      const std::uint16_t effects = carried.AddEnd(stop, format.effects, after);
      if (effects == format.effects) {
        add(stop, own);
      } else {
        format.effects = effects;
        add(stop, document.characters.Id(format));
      }
      at = stop;
    }
  }
}

/// The runs, with a run of its own for each of the ends of cells and paragraphs in
/// front of a change. The end of a row has the format of what it ends: words in
/// front of it would be a cell.
std::vector<Run> SplitOffEnds(const Document& document) {
  std::vector<Run> runs;
  for (std::size_t index = 0; index < document.runs.size(); ++index) {
    Run run = document.runs[index];
    const bool is_last = index + 1 == document.runs.size();
    const std::size_t end = is_last ? document.text.size() : document.runs[index + 1].begin;
    if (index > 0 && document.text[run.begin] == structure::kRow && ++run.begin == end) continue;
    if (index > 0) {
      const Run in_front = runs.back();
      std::size_t end_at = run.begin;
      while (end_at > in_front.begin + 1 && IsEnd(document.text[end_at - 1])) --end_at;
      for (; end_at < run.begin; ++end_at) runs.push_back({end_at, in_front.format});
    }
    runs.push_back(run);
  }
  return runs;
}

/// Effects that end after the end of a cell or paragraph end in front of it where
/// a cell, a row or an item follows: the page would close them within the cell or
/// the item, where they do not end for what comes after.
void EndEffects(Document& document, std::vector<Run>& runs) {
  std::size_t paragraph = document.paragraphs.size();
  const auto structure_follows = [&](std::size_t end) {
    while (document.paragraphs[paragraph - 1].end > end) --paragraph;
    const ParagraphFormat& format = document.formats[document.paragraphs[paragraph].format];
    return format.row != 0 || format.list != 0;
  };
  for (std::size_t index = runs.size(); index-- > 1;) {
    const std::size_t end = runs[index].begin;
    const char16_t last = document.text[end - 1];
    if (!IsEnd(last) || (last == structure::kParagraph && !structure_follows(end))) continue;
    const unsigned kept = last == structure::kCell ? kCarried : 0;
    CharacterFormat format = document.characters[runs[index - 1].format];
    format.effects &= static_cast<std::uint16_t>(document.characters[runs[index].format].effects | kept);
    runs[index - 1].format = document.characters.Id(format);
  }
}

/// A size that only a paragraph's end brings waits for the text after it where
/// that changes the font: the rules would drop it.
void DelaySizes(Document& document, std::vector<Run>& runs) {
  for (std::size_t index = 2; index < runs.size(); ++index) {
    if (document.text[runs[index].begin - 1] != structure::kParagraph) continue;
    const CharacterFormat& next = document.characters[runs[index].format];
    CharacterFormat format = document.characters[runs[index - 1].format];
    if (format.font == next.font) continue;
    CharacterFormat in_next_font = format;
    in_next_font.font = next.font;
    if (in_next_font != next) continue;
    format.size = document.characters[runs[index - 2].format].size;
    runs[index - 1].format = document.characters.Id(format);
  }
}

}  // namespace

void ChooseStructureFormats(Document& document) {
  CarryEffectsOverCells(document);
  std::vector<Run> runs = SplitOffEnds(document);
  EndEffects(document, runs);
  DelaySizes(document, runs);
  document.runs.clear();
  for (const Run& run : runs) {
    if (document.runs.empty() || document.runs.back().format != run.format) document.runs.push_back(run);
  }
}

}  // namespace quillary::platform::rtf

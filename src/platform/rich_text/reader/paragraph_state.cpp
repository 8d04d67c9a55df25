#include "platform/rich_text/reader/paragraph_state.h"

#include <algorithm>
#include <vector>

#include "platform/rich_text/reader/word_values.h"

namespace quillary::platform::rtf {
namespace {

// The control held no more tab stops than this.
constexpr std::size_t kMostTabStops = 32;

void AddTabStop(ParagraphState& state, Document& document, std::int32_t position) {
  std::vector<TabStop> stops = document.tabs[state.format.tabs];
  if (stops.size() < kMostTabStops) {
    stops.push_back({Twips(position), state.next_tab});
    state.format.tabs = document.TabsId(stops);
  }
  state.next_tab = Alignment::Left;
}

/// Words about the place of a paragraph, which no style covers.
bool ReadPlaceWord(const Token& token, ParagraphState& state) {
  switch (token.keyword) {
    case Keyword::Pard:
      state = ParagraphState{};
      return true;
    case Keyword::S:
      state.style = token.number;
      return true;
    case Keyword::Intbl:
      state.in_table = IsOn(token);
      return true;
    case Keyword::Itap:
      if (token.number > 0) state.in_table = true;
      return true;
    case Keyword::Ls:
      state.list_override = token.number;
      return true;
    case Keyword::Ilvl:
      state.list_level = std::clamp(token.number, 0, 8);
      return true;
    case Keyword::Tqc:
      state.next_tab = Alignment::Centre;
      return true;
    case Keyword::Tqr:
      state.next_tab = Alignment::Right;
      return true;
    case Keyword::Tqdec:
      state.next_tab = Alignment::Justified;
      return true;
    case Keyword::Rtlpar:
      state.format.right_to_left = true;
      return true;
    case Keyword::Ltrpar:
      state.format.right_to_left = false;
      return true;
    case Keyword::Nowidctlpar:
      state.format.no_widow_control = true;
      return true;
    case Keyword::Widctlpar:
      state.format.no_widow_control = false;
      return true;
    default:
      return false;
  }
}

bool ReadMeasureWord(const Token& token, ParagraphFormat& format) {
  switch (token.keyword) {
    case Keyword::Fi:
      format.first_indent = Twips(token.number);
      return true;
    case Keyword::Li:
      format.left_indent = Twips(token.number);
      return true;
    case Keyword::Ri:
      format.right_indent = Twips(token.number);
      return true;
    case Keyword::Sb:
      format.space_before = Twips(token.number);
      return true;
    case Keyword::Sa:
      format.space_after = Twips(token.number);
      return true;
    case Keyword::Sl:
      format.line_spacing = Twips(token.number);
      if (format.line_spacing == 0) format.line_multiple = 0;
      return true;
    case Keyword::Slmult:
      format.line_multiple = format.line_spacing != 0 && token.number == 1 ? 1 : 0;
      return true;
    default:
      return false;
  }
}

bool ReadAlignmentWord(const Token& token, ParagraphFormat& format) {
  switch (token.keyword) {
    case Keyword::Ql:
      format.alignment = Alignment::Left;
      return true;
    case Keyword::Qc:
      format.alignment = Alignment::Centre;
      return true;
    case Keyword::Qr:
      format.alignment = Alignment::Right;
      return true;
    case Keyword::Qj:
      format.alignment = Alignment::Justified;
      return true;
    case Keyword::Keep:
      format.keep = IsOn(token);
      return true;
    case Keyword::Keepn:
      format.keep_next = IsOn(token);
      return true;
    default:
      return false;
  }
}

}  // namespace

bool ReadParagraphWord(const Token& token, ParagraphState& state, Document& document) {
  if (ReadPlaceWord(token, state)) return true;
  if (token.keyword == Keyword::Tx) {
    AddTabStop(state, document, token.number);
  } else if (!ReadMeasureWord(token, state.format) && !ReadAlignmentWord(token, state.format)) {
    return false;
  }
  state.direct = true;
  return true;
}

}  // namespace quillary::platform::rtf

#include <algorithm>

#include "platform/rich_text/reader/list_labels.h"
#include "platform/rich_text/reader/rtf_reader.h"
#include "platform/rich_text/reader/word_values.h"

namespace quillary::platform::rtf {

void Reader::ReadNumberingWord(const Token& token) {
  const auto number = [&](NumberStyle style) {
    numbering_.bullet = false;
    numbering_.style = style;
  };
  switch (token.keyword) {
    case Keyword::Pnlvlblt:
      numbering_.bullet = true;
      break;
    case Keyword::Pnlvlcont:
      numbering_continues_ = true;
      break;
    case Keyword::Pnlvlbody:
      numbering_.bullet = false;
      break;
    case Keyword::Pndec:
      number(NumberStyle::Decimal);
      break;
    case Keyword::Pnucltr:
      number(NumberStyle::UpperLetter);
      break;
    case Keyword::Pnlcltr:
      number(NumberStyle::LowerLetter);
      break;
    case Keyword::Pnucrm:
      number(NumberStyle::UpperRoman);
      break;
    case Keyword::Pnlcrm:
      number(NumberStyle::LowerRoman);
      break;
    case Keyword::Pnf:
      if (fonts_.IsSymbol(token.number)) numbering_.font = fonts_.Index(token.number);
      break;
    case Keyword::Pnindent:
      numbering_.indent = Twips(token.number);
      break;
    case Keyword::Pnstart:
      numbering_.start = std::clamp(token.number, 0, 32767);
      break;
    default:
      break;
  }
}

void Reader::EndNumbering() {
  if (numbering_continues_) {
    Top().paragraph.format.list = 0;
    return;
  }
  if (numbering_.bullet) {
    // Every bullet is the control's own.
    numbering_.before.clear();
    numbering_.after.clear();
    numbering_.style = NumberStyle::Decimal;
    numbering_.start.reset();
  } else {
    numbering_.font.reset();
    if (!numbering_.start) numbering_.start = 1;
    numbering_.before = Affix(numbering_.before);
    numbering_.after = Affix(numbering_.after);
  }
  Top().paragraph.format.list = document_.ListId(numbering_);
}

/// Settles which list the paragraph that ends here belongs to, and its number.
void Reader::ResolveList(ParagraphEnd& paragraph) {
  const ParagraphState& state = Top().paragraph;
  Label label;
  std::uint32_t& list = paragraph.format.list;
  if (state.list_override > 0) {
    const ListTables::Item item = lists_.NextItem(state.list_override, state.list_level, has_label_, label_);
    if (item.is_item) list = document_.ListId(item.format);
    label = item.label;
  } else if (has_label_ && list == 0) {
    // A label without a list: the control leaves one behind where a list
    // ended; else the paragraph is an item all the same.
    if (label_before_pard_ && builder_.ParagraphIsEmpty()) {
      paragraph.stray_bullet = last_list_ != 0;
    } else {
      ListFormat format;
      format.bullet = !HasNumber(label_);
      if (!format.bullet) SplitLabel(label_, format);
      list = document_.ListId(format);
      label.text = label_;
    }
  } else if (list != 0 && !document_.lists[list].bullet) {
    const ListFormat& format = document_.lists[list];
    label.ordinal = list == last_list_ ? last_number_ + 1 : format.start.value_or(1);
    label.text = has_label_ ? label_ : format.before + NumberText(label.ordinal, format.style) + format.after;
  }
  last_list_ = list;
  last_number_ = label.ordinal;
  if (list == 0 || document_.lists[list].bullet) return;
  document_.labels.push_back(label);
  paragraph.label = static_cast<std::uint32_t>(document_.labels.size() - 1);
}

/// The control has no lists in table cells: a bullet or number there is text.
void Reader::BeginCellItem() {
  const ParagraphState& state = Top().paragraph;
  const bool is_item = state.list_override > 0 || state.format.list != 0;
  if (!state.in_table || !is_item || !builder_.ParagraphIsEmpty()) return;
  ParagraphEnd paragraph{.format = state.format};
  ResolveList(paragraph);
  if (paragraph.format.list == 0) return;
  const bool is_bullet = document_.lists[paragraph.format.list].bullet;
  builder_.AddText((is_bullet ? Text(u"\u2022") : document_.labels[paragraph.label].text) + u" ", FormatId());
}

}  // namespace quillary::platform::rtf

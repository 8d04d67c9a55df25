#include <algorithm>
#include <utility>

#include "platform/rich_text/reader/rtf_reader.h"

namespace quillary::platform::rtf {

void Reader::FlushBytes() {
  if (bytes_.IsEmpty()) return;
  for (const char16_t unit : bytes_.TakeComplete()) AddCharacter(unit);
}

void Reader::FlushAllBytes() {
  if (bytes_.IsEmpty()) return;
  for (const char16_t unit : bytes_.TakeAll()) AddCharacter(unit);
}

/// Text for readers without HTML is left out, but for what stands for an entity
/// or a line end of the page.
bool Reader::IsShown(TextView text) {
  const Group& group = Top();
  if (!InBody() || group.character.hidden) return false;
  if (!group.html_only || html_entity_) return true;
  const bool is_blank = text.find_first_not_of(u' ') == TextView::npos;
  return is_blank && !document_.text.empty() && document_.text.back() > u' ';
}

void Reader::AddText(TextView text) {
  FlushAllBytes();
  if (!IsShown(text)) return;
  BeginCellItem();
  const CharacterState& state = Top().character;
  if (header_.fonts.IsSymbol(state.Font())) {
    for (const char16_t unit : text)
      builder_.AddUnit(static_cast<char16_t>(kSymbolBase + unit), formats_.Id());
  } else if (state.capitals) {
    builder_.AddText(ToUpper(text), formats_.Id());
  } else {
    builder_.AddText(text, formats_.Id());
  }
}

void Reader::AddCharacter(char16_t unit) {
  if (!InBody()) {
    ReadDestinationText({&unit, 1});
    return;
  }
  if (unit < u' ' || !IsShown({&unit, 1})) return;
  // A symbol font shows its own sign for every Western character.
  if (unit <= 0xFF && header_.fonts.IsSymbol(Top().character.Font()))
    unit = static_cast<char16_t>(kSymbolBase + unit);
  BeginCellItem();
  builder_.AddUnit(Top().character.capitals ? ToUpper({&unit, 1}).front() : unit, formats_.Id());
}

void Reader::AddMark(char16_t mark) {
  FlushAllBytes();
  const Group& group = Top();
  if (!InBody()) {
    const char16_t blank = u' ';
    ReadDestinationText({&blank, 1});
    return;
  }
  if (group.character.hidden) return;
  if (mark == marks::kTab) BeginCellItem();
  builder_.AddUnit(mark, mark == marks::kLine ? formats_.StructureId() : formats_.Id());
}

/// Words that stand for a character.
bool Reader::ReadCharacterName(Keyword keyword) {
  char16_t unit = 0;
  switch (keyword) {
    case Keyword::Tab:
      unit = marks::kTab;
      break;
    case Keyword::Emdash:
      unit = 0x2014;
      break;
    case Keyword::Endash:
      unit = 0x2013;
      break;
    case Keyword::Emspace:
      unit = 0x2003;
      break;
    case Keyword::Enspace:
      unit = 0x2002;
      break;
    case Keyword::Qmspace:
      unit = 0x2005;
      break;
    case Keyword::Bullet:
      unit = 0x2022;
      break;
    case Keyword::Lquote:
      unit = 0x2018;
      break;
    case Keyword::Rquote:
      unit = 0x2019;
      break;
    case Keyword::Ldblquote:
      unit = 0x201C;
      break;
    case Keyword::Rdblquote:
      unit = 0x201D;
      break;
    case Keyword::Zwj:
      unit = 0x200D;
      break;
    case Keyword::Zwnj:
      unit = 0x200C;
      break;
    case Keyword::Ltrmark:
      unit = 0x200E;
      break;
    case Keyword::Rtlmark:
      unit = 0x200F;
      break;
    case Keyword::Chftn:
      if (fallback_left_ == 0 && InBody()) AddText(Decimal(Top().in_footnote ? footnotes_ : ++footnotes_));
      return true;
    default:
      return false;
  }
  if (fallback_left_ > 0) {
    --fallback_left_;
  } else if (unit == marks::kTab) {
    AddMark(unit);
  } else {
    FlushAllBytes();
    AddCharacter(unit);
  }
  return true;
}

/// Breaks, tables and the rest of what only the document's own text has.
bool Reader::ReadBodyWord(const Token& token) {
  if (Top().destination == Destination::Nowhere) {
    if (token.keyword == Keyword::Nestrow) builder_.EndNestedRow(formats_.StructureId());
    return true;
  }
  return InBody() && (ReadBreak(token.keyword) || builder_.Row().Read(token));
}

bool Reader::ReadBreak(Keyword keyword) {
  const bool is_one_line = Top().in_footnote || Top().within_row;
  switch (keyword) {
    case Keyword::Par:
      EndParagraph();
      return true;
    case Keyword::Page:
    case Keyword::Sect:
    case Keyword::Column:
      if (!builder_.InRow()) EndParagraph();
      return true;
    case Keyword::Line:
      AddMark(marks::kLine);
      return true;
    case Keyword::Nestcell:
      AddMark(marks::kTab);
      return true;
    case Keyword::Nestrow:
      builder_.EndNestedRow(formats_.StructureId());
      return true;
    case Keyword::Cell:
      if (is_one_line) {
        AddMark(marks::kTab);
      } else {
        FlushAllBytes();
        builder_.EndCell(CurrentParagraph(), formats_.StructureId());
        items_.EndCell();
      }
      return true;
    case Keyword::Row:
      if (is_one_line) {
        AddMark(marks::kLine);
      } else {
        FlushAllBytes();
        builder_.EndRow(CurrentParagraph(), formats_.StructureId());
      }
      return true;
    case Keyword::Trowd:
      if (is_one_line) return true;
      FlushAllBytes();
      if (!builder_.InRow() && !builder_.ParagraphIsEmpty() && !Top().paragraph.in_table) EndParagraph();
      builder_.BeginRow();
      return false;  // its other meaning is the row definition's
    default:
      return false;
  }
}

ParagraphEnd Reader::CurrentParagraph() {
  const ParagraphState& state = Top().paragraph;
  return {.format = header_.styles.Resolve(state), .in_table = state.in_table || Top().within_row};
}

/// The control has no lists in table cells: a bullet or number there is text.
void Reader::BeginCellItem() {
  const ParagraphState& state = Top().paragraph;
  const bool is_item = state.list_override > 0 || state.format.list != 0;
  if (!state.in_table || !is_item || !builder_.ParagraphIsEmpty()) return;
  ParagraphEnd paragraph{.format = state.format};
  items_.Resolve(state, true, paragraph);
  if (paragraph.format.list == 0) return;
  const bool is_bullet = document_.lists[paragraph.format.list].bullet;
  builder_.AddText((is_bullet ? Text(u"\u2022") : document_.labels[paragraph.label].text) + u" ",
                   formats_.Id());
}

void Reader::EndParagraph() {
  FlushAllBytes();
  if (Top().in_footnote) {
    AddText(u" ");
    return;
  }
  ParagraphEnd paragraph = CurrentParagraph();
  if (paragraph.in_table) {
    paragraph.format.list = 0;
  } else {
    items_.Resolve(Top().paragraph, builder_.ParagraphIsEmpty(), paragraph);
  }
  builder_.EndParagraph(paragraph, formats_.StructureId());
  items_.EndParagraph();
}

void Reader::Finish() {
  FlushAllBytes();
  ParagraphEnd paragraph = CurrentParagraph();
  if (builder_.ParagraphIsEmpty() || paragraph.in_table) {
    paragraph.format.list = 0;
  } else {
    items_.Resolve(Top().paragraph, builder_.ParagraphIsEmpty(), paragraph);
  }
  builder_.Finish(paragraph, formats_.Id());
}

}  // namespace quillary::platform::rtf

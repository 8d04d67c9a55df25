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

std::uint32_t Reader::FormatId() {
  if (!format_changed_) return format_;
  const Group& group = Top();
  const CharacterState* state = &group.character;
  // A paragraph that names a style and says nothing of its own has the style's letters.
  if (!state->direct && group.paragraph.style > 0) {
    const auto style = styles_.find(group.paragraph.style);
    if (style != styles_.end()) state = &style->second.character;
  }
  CharacterFormat format;
  format.font = fonts_.Index(state->Font());
  format.size = state->Size();
  format.effects = state->Effects();
  format.colour = colours_.Id(state->colour);
  if (state->highlight > 0) {
    format.highlight = colours_.Id(state->highlight);
  } else if (state->background > 0 && !colours_.IsWhite(state->background)) {
    format.highlight = colours_.Id(state->background);
  }
  const std::uint16_t language = group.character.language;
  format.language = language == document_.language ? std::uint16_t{0} : language;
  format.spacing = state->spacing;
  format.rise = state->rise;
  if (!controls_own_ && !document_.runs.empty()) {
    // A word for a language alone would leave a blank on the page, in the
    // middle of a word as like as not.
    CharacterFormat other_language = document_.characters[document_.runs.back().format];
    other_language.language = format.language;
    if (other_language == format)
      format.language = document_.characters[document_.runs.back().format].language;
  }
  format_ = document_.characters.Id(format);
  format_changed_ = false;
  return format_;
}

/// The format of a mark that nobody sees. Word processors give their marks
/// fonts, sizes, colours and languages of their own; a change of them is noise,
/// and one of colour costs the cell behind it its font on the page. What
/// ends with the text in front of the mark ends there, though.
std::uint32_t Reader::MarkFormatId() {
  const std::uint32_t own = FormatId();
  if (controls_own_ || document_.runs.empty() || document_.runs.back().format == own) return own;
  const CharacterFormat& mark = document_.characters[own];
  CharacterFormat format = document_.characters[document_.runs.back().format];
  format.effects &= mark.effects;
  if (mark.highlight == 0) format.highlight = 0;
  if (mark.rise == 0) format.rise = 0;
  return document_.characters.Id(format);
}

void Reader::AddText(TextView text) {
  FlushAllBytes();
  if (!IsShown(text)) return;
  BeginCellItem();
  const CharacterState& state = Top().character;
  if (fonts_.IsSymbol(state.Font())) {
    for (const char16_t unit : text) builder_.AddUnit(static_cast<char16_t>(kSymbolBase + unit), FormatId());
  } else if (state.capitals) {
    builder_.AddText(ToUpper(text), FormatId());
  } else {
    builder_.AddText(text, FormatId());
  }
}

void Reader::AddCharacter(char16_t unit) {
  if (!InBody()) {
    ReadDestinationText({&unit, 1});
    return;
  }
  if (unit < u' ' || !IsShown({&unit, 1})) return;
  // A symbol font shows its own sign for every Western character.
  if (unit <= 0xFF && fonts_.IsSymbol(Top().character.Font()))
    unit = static_cast<char16_t>(kSymbolBase + unit);
  BeginCellItem();
  builder_.AddUnit(Top().character.capitals ? ToUpper({&unit, 1}).front() : unit, FormatId());
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
  builder_.AddUnit(mark, mark == marks::kLine ? MarkFormatId() : FormatId());
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
    if (token.keyword == Keyword::Nestrow) builder_.EndNestedRow(MarkFormatId());
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
      builder_.EndNestedRow(MarkFormatId());
      return true;
    case Keyword::Cell:
      if (is_one_line) {
        AddMark(marks::kTab);
      } else {
        FlushAllBytes();
        builder_.EndCell(CurrentParagraph(), MarkFormatId());
        label_.clear();
        has_label_ = false;
      }
      return true;
    case Keyword::Row:
      if (is_one_line) {
        AddMark(marks::kLine);
      } else {
        FlushAllBytes();
        builder_.EndRow(CurrentParagraph(), MarkFormatId());
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
  const Group& group = Top();
  const ParagraphState& state = group.paragraph;
  ParagraphEnd paragraph{.format = state.format, .in_table = state.in_table || group.within_row};
  if (!state.direct && state.style > 0) {
    const auto style = styles_.find(state.style);
    if (style != styles_.end()) {
      paragraph.format = style->second.paragraph.format;
      paragraph.format.list = state.format.list;
      paragraph.format.right_to_left = state.format.right_to_left;
    }
  }
  return paragraph;
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
    ResolveList(paragraph);
  }
  builder_.EndParagraph(paragraph, MarkFormatId());
  label_.clear();
  has_label_ = false;
  label_before_pard_ = false;
}

void Reader::Finish() {
  FlushAllBytes();
  ParagraphEnd paragraph = CurrentParagraph();
  if (builder_.ParagraphIsEmpty() || paragraph.in_table) {
    paragraph.format.list = 0;
  } else {
    ResolveList(paragraph);
  }
  builder_.Finish(paragraph, FormatId());
}

}  // namespace quillary::platform::rtf

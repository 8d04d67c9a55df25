#include "platform/rich_text/reader/body.h"

#include "text/text.h"

namespace quillary::platform::rtf {

/// Text for readers without HTML is left out, but for what stands for an entity
/// or a line end of the page.
bool Body::IsShown(TextView text) const {
  const Group& group = groups_.Top();
  if (group.character.hidden) return false;
  if (!group.html_only || html_entity_) return true;
  const bool is_space = text.find_first_not_of(u' ') == TextView::npos;
  return is_space && !document_.text.empty() && document_.text.back() > u' ';
}

void Body::AddText(TextView text) {
  if (!IsShown(text)) return;
  BeginCellItem();
  const CharacterState& state = groups_.Top().character;
  if (header_.fonts.IsSymbol(state.Font())) {
    for (const char16_t unit : text)
      builder_.AddUnit(static_cast<char16_t>(kSymbolBase + unit), formats_.Id());
  } else if (state.capitals) {
    builder_.AddText(ToUpper(text), formats_.Id());
  } else {
    builder_.AddText(text, formats_.Id());
  }
}

void Body::AddCharacter(char16_t unit) {
  if (unit < u' ' || !IsShown({&unit, 1})) return;
  const CharacterState& state = groups_.Top().character;
  // A symbol font shows its own character for every Western one.
  if (unit <= 0xFF && header_.fonts.IsSymbol(state.Font())) unit = static_cast<char16_t>(kSymbolBase + unit);
  BeginCellItem();
  builder_.AddUnit(state.capitals ? ToUpper({&unit, 1}).front() : unit, formats_.Id());
}

void Body::AddStructure(char16_t character) {
  if (groups_.Top().character.hidden) return;
  if (character == structure::kTab) BeginCellItem();
  builder_.AddUnit(character, character == structure::kLine ? formats_.StructureId() : formats_.Id());
}

void Body::AddInline(Inline content) {
  document_.inlines.push_back(std::move(content));
  builder_.AddUnit(structure::kObject, formats_.Id());
}

void Body::AppendText(TextView text) { builder_.AddText(text, document_.runs.back().format); }

ParagraphEnd Body::CurrentParagraph() const {
  const Group& group = groups_.Top();
  return {.format = header_.styles.Resolve(group.paragraph),
          .in_table = group.paragraph.in_table || group.within_row};
}

void Body::ResolveItem(ParagraphEnd& paragraph) {
  items_.Resolve(groups_.Top().paragraph, builder_.ParagraphIsEmpty(), paragraph);
}

/// The control has no lists in table cells: a bullet or number there is text.
void Body::BeginCellItem() {
  const ParagraphState& state = groups_.Top().paragraph;
  const bool is_item = state.list_override > 0 || state.format.list != 0;
  if (!state.in_table || !is_item || !builder_.ParagraphIsEmpty()) return;
  ParagraphEnd paragraph{.format = state.format};
  ResolveItem(paragraph);
  if (paragraph.format.list == 0) return;
  const bool is_bullet = document_.lists[paragraph.format.list].bullet;
  const Text label = is_bullet ? Text(u"\u2022") : document_.labels[paragraph.label].text;
  builder_.AddText(label + u" ", formats_.Id());
}

void Body::EndParagraph() {
  if (groups_.Top().in_footnote) return AddText(u" ");
  ParagraphEnd paragraph = CurrentParagraph();
  if (paragraph.in_table) {
    paragraph.format.list = 0;
  } else {
    ResolveItem(paragraph);
  }
  builder_.EndParagraph(paragraph, formats_.StructureId());
  items_.EndParagraph();
}

void Body::BeginRow() {
  const bool in_table = groups_.Top().paragraph.in_table;
  if (!builder_.InRow() && !builder_.ParagraphIsEmpty() && !in_table) EndParagraph();
  builder_.BeginRow();
}

void Body::EndCell() {
  if (IsOneLine()) return AddStructure(structure::kTab);
  builder_.EndCell(CurrentParagraph(), formats_.StructureId());
  items_.EndCell();
}

void Body::EndRow() {
  if (IsOneLine()) return AddStructure(structure::kLine);
  builder_.EndRow(CurrentParagraph(), formats_.StructureId());
}

void Body::BeginTextBox() {
  Group& group = groups_.Top();
  const bool within_row = builder_.InRow() || group.paragraph.in_table;
  if (!builder_.ParagraphIsEmpty()) {
    if (within_row || group.in_footnote) {
      builder_.AddUnit(structure::kLine, formats_.Id());
    } else {
      builder_.EndParagraph({.format = group.paragraph.format}, formats_.Id());
    }
  }
  group.destination = Destination::Body;
  group.paragraph = {};
  group.character = {};
  group.ends_text_box = true;
  group.within_row = within_row;
  ChangeFormat();
}

void Body::EndTextBox(const Group& closed) {
  if (builder_.ParagraphIsEmpty()) return;
  if (closed.within_row || groups_.Top().in_footnote) {
    builder_.AddUnit(structure::kLine, formats_.Id());
  } else {
    builder_.EndParagraph({.format = closed.paragraph.format}, formats_.Id());
  }
}

void Body::Finish() {
  ParagraphEnd paragraph = CurrentParagraph();
  if (builder_.ParagraphIsEmpty() || paragraph.in_table) {
    paragraph.format.list = 0;
  } else {
    ResolveItem(paragraph);
  }
  builder_.Finish(paragraph, formats_.Id());
}

bool Body::ReadFormatWord(const Token& token) {
  Group& group = groups_.Top();
  if (!ReadCharacterWord(token, group.character)) {
    if (!ReadParagraphWord(token, group.paragraph, document_)) return false;
    if (token.keyword == Keyword::Pard) items_.ResetParagraph();
  }
  ChangeFormat();
  return true;
}

}  // namespace quillary::platform::rtf

#include "platform/rich_text/reader/footnotes.h"

#include "platform/rich_text/model/document_model.h"

namespace quillary::platform::rtf {

void Footnotes::Begin() {
  if (!groups_.InBody()) return;
  groups_.Top().ends_footnote = true;
  groups_.Top().in_footnote = true;
  AddBracket(u" [");
}

void Footnotes::End() { AddBracket(u"]"); }

void Footnotes::AddNumber() {
  if (text_.InFallback() || !groups_.InBody()) return;
  text_.AddText(Decimal(groups_.Top().in_footnote ? count_ : ++count_));
}

/// The brackets are not raised as the note's number in front of them is.
void Footnotes::AddBracket(TextView bracket) {
  CharacterState& state = groups_.Top().character;
  const CharacterState kept = state;
  state.effects &= static_cast<std::uint16_t>(~(kSuperscript | kSubscript));
  state.rise = 0;
  body_.ChangeFormat();
  text_.AddText(bracket);
  state = kept;
  body_.ChangeFormat();
}

}  // namespace quillary::platform::rtf

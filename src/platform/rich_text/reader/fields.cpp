#include "platform/rich_text/reader/fields.h"

#include <utility>

#include "platform/rich_text/reader/field_instructions.h"

namespace quillary::platform::rtf {

Opening Fields::Open(Keyword keyword, Group& group) {
  const bool takes_content = group.TakesContent();
  switch (keyword) {
    case Keyword::Field:
      if (!takes_content) return Opening::Done;
      open_.emplace_back();
      group.ends_field = true;
      return Opening::Done;
    case Keyword::Fldinst:
      if (open_.empty() || !takes_content) return Opening::Skip;
      group.destination = Destination::FieldInstruction;
      return Opening::Done;
    case Keyword::Fldrslt:
      if (!open_.empty() && takes_content) open_.back().result_begin = document_.text.size();
      return Opening::Done;
    default:
      return Opening::None;
  }
}

void Fields::End(const Group& outer) {
  const Field field = std::move(open_.back());
  open_.pop_back();
  if (!field.result_begin || outer.destination != Destination::Body) return;
  const TextView result = TextView(document_.text).substr(*field.result_begin);
  if (result.empty()) {
    const std::optional<char16_t> symbol = SymbolOfField(field.instruction);
    if (symbol) body_.AddCharacter(*symbol);
    return;
  }
  const Text target = LinkTarget(field.instruction);
  if (target.empty() || IsSameTarget(result, target)) return;
  body_.AppendText(u" <" + target + u">");
}

}  // namespace quillary::platform::rtf

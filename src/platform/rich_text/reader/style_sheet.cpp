#include "platform/rich_text/reader/style_sheet.h"

#include <algorithm>

namespace quillary::platform::rtf {

void StyleSheet::Add(const CharacterState& character, const ParagraphState& paragraph) {
  styles_[std::max(paragraph.style, std::int32_t{0})] = {character, paragraph};
}

const StyleSheet::Style* StyleSheet::Find(const ParagraphState& paragraph) const {
  if (paragraph.style <= 0) return nullptr;
  const auto found = styles_.find(paragraph.style);
  return found == styles_.end() ? nullptr : &found->second;
}

const CharacterState& StyleSheet::Resolve(const CharacterState& own, const ParagraphState& paragraph) const {
  const Style* style = own.direct ? nullptr : Find(paragraph);
  return style == nullptr ? own : style->character;
}

ParagraphFormat StyleSheet::Resolve(const ParagraphState& own) const {
  const Style* style = own.direct ? nullptr : Find(own);
  if (style == nullptr) return own.format;
  ParagraphFormat format = style->paragraph.format;
  format.list = own.format.list;
  format.right_to_left = own.format.right_to_left;
  return format;
}

}  // namespace quillary::platform::rtf

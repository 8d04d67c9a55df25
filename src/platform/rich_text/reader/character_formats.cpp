#include "platform/rich_text/reader/character_formats.h"

namespace quillary::platform::rtf {

void CharacterFormats::Resolve() {
  const Group& group = groups_.Top();
  const CharacterState& state = header_.styles.Resolve(group.character, group.paragraph);
  const ColourTable& colours = header_.colours;
  CharacterFormat format;
  format.font = header_.fonts.Index(state.Font());
  format.size = state.Size();
  format.effects = state.Effects();
  format.colour = colours.Id(state.colour);
  if (state.highlight > 0) {
    format.highlight = colours.Id(state.highlight);
  } else if (state.background > 0 && !colours.IsWhite(state.background)) {
    format.highlight = colours.Id(state.background);
  }
  const std::uint16_t language = group.character.language;
  format.language = language == document_.language ? std::uint16_t{0} : language;
  format.spacing = state.spacing;
  format.rise = state.rise;
  if (!by_control_ && !document_.runs.empty()) {
    // A word for a language alone would leave a space on the page, often
    // in the middle of a word.
    const CharacterFormat& last = document_.characters[document_.runs.back().format];
    CharacterFormat other_language = last;
    other_language.language = format.language;
    if (other_language == format) format.language = last.language;
  }
  id_ = document_.characters.Id(format);
  changed_ = false;
}

/// Word processors give the structure characters fonts, sizes, colours and
/// languages of their own; a change of them is noise, and one of colour costs
/// the cell after it its font on the page. What ends with the text in front of
/// the structure character ends there, though.
std::uint32_t CharacterFormats::StructureId() {
  const std::uint32_t own = Id();
  if (by_control_ || document_.runs.empty() || document_.runs.back().format == own) return own;
  const CharacterFormat& own_format = document_.characters[own];
  CharacterFormat format = document_.characters[document_.runs.back().format];
  format.effects &= own_format.effects;
  if (own_format.highlight == 0) format.highlight = 0;
  if (own_format.rise == 0) format.rise = 0;
  return document_.characters.Id(format);
}

}  // namespace quillary::platform::rtf

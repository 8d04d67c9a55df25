#include "platform/rich_text/reader/character_state.h"

#include <algorithm>

#include "platform/rich_text/model/document_model.h"
#include "platform/rich_text/reader/word_values.h"

namespace quillary::platform::rtf {
namespace {

constexpr std::int32_t kLargestSize = 3276;
// A rise beyond 31 half points, and a spacing beyond these, are split up on
// the page and leave digits there.
constexpr std::int32_t kMostRise = 31;
constexpr std::int32_t kLeastSpacing = -9;
constexpr std::int32_t kMostSpacing = 40;

void Set(std::uint16_t& effects, std::uint16_t effect, bool on) {
  effects = static_cast<std::uint16_t>(on ? effects | effect : effects & ~effect);
}

std::int16_t Spacing(std::int32_t twips) {
  return twips < kLeastSpacing || twips > kMostSpacing ? std::int16_t{0} : static_cast<std::int16_t>(twips);
}

std::int16_t Rise(const Token& token, std::int32_t direction) {
  const std::int32_t half_points = token.has_number ? token.number : 6;
  return static_cast<std::int16_t>(direction * std::clamp(half_points, -kMostRise, kMostRise));
}

std::uint16_t Size(const Token& token) {
  if (!token.has_number || token.number <= 0) return 24;
  return static_cast<std::uint16_t>(std::min(token.number, kLargestSize));
}

/// Which script the fonts and sizes of the following words belong to.
bool ReadScriptWord(const Token& token, CharacterState& state) {
  switch (token.keyword) {
    case Keyword::Rtlch:
      state.script = Script::RightToLeft;
      return true;
    case Keyword::Ltrch:
    case Keyword::Loch:
    case Keyword::Hich:
      state.script = Script::Latin;
      return true;
    case Keyword::Dbch:
      state.script = Script::FarEast;
      return true;
    case Keyword::F:
      (state.script == Script::FarEast ? state.far_east_font : state.font) = token.number;
      if (state.script == Script::FarEast) state.font = token.number;
      return true;
    case Keyword::Af:
      if (state.script == Script::FarEast) state.far_east_font = token.number;
      if (state.script == Script::RightToLeft) state.associated_font = token.number;
      return true;
    case Keyword::Afs:
      state.associated_size = Size(token);
      return true;
    case Keyword::Ab:
      Set(state.associated_effects, kBold, IsOn(token));
      state.associated = true;
      return true;
    case Keyword::Ai:
      Set(state.associated_effects, kItalic, IsOn(token));
      state.associated = true;
      return true;
    default:
      return false;
  }
}

bool ReadEffectWord(const Token& token, CharacterState& state) {
  switch (token.keyword) {
    case Keyword::B:
      Set(state.effects, kBold, IsOn(token));
      return true;
    case Keyword::I:
      Set(state.effects, kItalic, IsOn(token));
      return true;
    case Keyword::Ul:
      Set(state.effects, kUnderline, IsOn(token));
      return true;
    case Keyword::Ulnone:
      Set(state.effects, kUnderline, false);
      return true;
    case Keyword::Strike:
      Set(state.effects, kStrike, IsOn(token));
      return true;
    case Keyword::Super:
      Set(state.effects, kSubscript, false);
      Set(state.effects, kSuperscript, IsOn(token));
      return true;
    case Keyword::Sub:
      Set(state.effects, kSuperscript, false);
      Set(state.effects, kSubscript, IsOn(token));
      return true;
    case Keyword::Nosupersub:
      Set(state.effects, kSuperscript | kSubscript, false);
      return true;
    case Keyword::Caps:
      state.capitals = IsOn(token);
      return true;
    case Keyword::V:
      state.hidden = IsOn(token);
      return true;
    case Keyword::Deleted:
      state.deleted = IsOn(token);
      return true;
    default:
      return false;
  }
}

bool ReadValueWord(const Token& token, CharacterState& state) {
  switch (token.keyword) {
    case Keyword::Fs:
      state.size = Size(token);
      return true;
    case Keyword::Cf:
      state.colour = token.number;
      return true;
    case Keyword::Highlight:
      state.highlight = token.number;
      return true;
    case Keyword::Cb:
    case Keyword::Chcbpat:
      state.background = token.number;
      return true;
    case Keyword::Expndtw:
      state.spacing = Spacing(token.number);
      return true;
    case Keyword::Expnd:
      state.spacing = Spacing(Twips(token.number) * 5);
      return true;
    case Keyword::Up:
      state.rise = Rise(token, 1);
      return true;
    case Keyword::Dn:
      state.rise = Rise(token, -1);
      return true;
    default:
      return false;
  }
}

}  // namespace

std::int32_t CharacterState::Font() const {
  if (script == Script::RightToLeft && associated_font >= 0) return associated_font;
  if (script == Script::FarEast && far_east_font >= 0) return far_east_font;
  return font;
}

std::uint16_t CharacterState::Size() const {
  return script == Script::RightToLeft && associated_size != 0 ? associated_size : size;
}

std::uint16_t CharacterState::Effects() const {
  std::uint16_t result = effects;
  if (script == Script::RightToLeft && associated) {
    result = static_cast<std::uint16_t>((effects & ~(kBold | kItalic)) | associated_effects);
  }
  if (deleted) result |= kStrike;
  return result;
}

bool ReadCharacterWord(const Token& token, CharacterState& state) {
  if (token.keyword == Keyword::Plain) {
    state = CharacterState{};
    return true;
  }
  if (token.keyword == Keyword::Lang) {
    state.language = Language(token.number);
    return true;
  }
  if (ReadScriptWord(token, state)) {
    if (token.keyword == Keyword::F) state.direct = true;
    return true;
  }
  if (!ReadEffectWord(token, state) && !ReadValueWord(token, state)) return false;
  state.direct = true;
  return true;
}

}  // namespace quillary::platform::rtf

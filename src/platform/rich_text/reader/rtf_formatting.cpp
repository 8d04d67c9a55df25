#include <algorithm>

#include "platform/rich_text/reader/rtf_state.h"

namespace quillary::platform::rtf {
namespace {

// The control held no more tab stops than this.
constexpr std::size_t kMostTabStops = 32;
constexpr std::int32_t kWidest = 31680;  // 22 inches
constexpr std::int32_t kLargestSize = 3276;
// A rise beyond 31 half points, and a spacing beyond these, are taken apart on
// the page and leave digits there.
constexpr std::int32_t kMostRise = 31;
constexpr std::int32_t kLeastSpacing = -9;
constexpr std::int32_t kMostSpacing = 40;

/// A word that sets a state: "\b" and "\b1" switch it on, "\b0" off. It never
/// turns the state over.
bool IsOn(const Token& token) { return !token.has_number || token.number != 0; }

void Set(std::uint16_t& effects, std::uint16_t effect, bool on) {
  effects = static_cast<std::uint16_t>(on ? effects | effect : effects & ~effect);
}

std::int16_t Spacing(std::int32_t twips) {
  return twips < kLeastSpacing || twips > kMostSpacing ? std::int16_t{0} : static_cast<std::int16_t>(twips);
}

std::int16_t Rise(const Token& token, std::int32_t sign) {
  const std::int32_t half_points = token.has_number ? token.number : 6;
  return static_cast<std::int16_t>(sign * std::clamp(half_points, -kMostRise, kMostRise));
}

std::uint16_t Size(const Token& token) {
  if (!token.has_number || token.number <= 0) return 24;
  return static_cast<std::uint16_t>(std::min(token.number, kLargestSize));
}

/// Greek and Turkish are left out: on a page their words remap the escapes of
/// all that follows.
std::uint16_t Language(std::int32_t number) {
  constexpr std::int32_t kGreek = 1032;
  constexpr std::int32_t kTurkish = 1055;
  if (number <= 0 || number > 0xFFFF || number == kGreek || number == kTurkish) return 0;
  return static_cast<std::uint16_t>(number);
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
      state.spacing = Spacing(std::clamp(token.number, -kWidest, kWidest) * 5);
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
      state.table_depth = token.number;
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

std::int32_t Twips(std::int32_t number) { return std::clamp(number, -kWidest, kWidest); }

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

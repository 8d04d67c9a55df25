#include "html_to_rtf/inline/spans.h"

#include <algorithm>

#include "html_to_rtf/inline/colours.h"
#include "html_to_rtf/inline/font_sizes.h"
#include "html_to_rtf/inline/fonts.h"
#include "html_to_rtf/inline/rtf_words.h"
#include "html_to_rtf/inline/tag_values.h"

namespace quillary::HTMLRTFConverter {
namespace {

void ReadFamily(HtmlToRtfState& state, TextView tag) {
  constexpr TextView kName = u"FONT-FAMILY:";
  const std::int32_t found = FindText(1, tag, kName);
  if (found == 0) return;
  TextView rest = MidView(tag, found + static_cast<std::int32_t>(kName.size()));
  rest.remove_prefix(std::min(rest.find_first_not_of(u' '), rest.size()));
  const TextView value = ValueBetween(rest, 1, FirstEnd(rest, 1, {u";", u"\"", u" "}));
  const Text face = Without(TrimView(value), u"\"");
  if (!face.empty()) UseFace(state, face);
}

// The colour of the text, not of its background, unless that is written twice.
Text ColourValue(TextView tag) {
  constexpr TextView kName = u"COLOR:";
  std::int32_t found = FindText(1, tag, kName);
  if (found > 1 && tag[static_cast<std::size_t>(found) - 2] == u'-') found = FindText(found + 1, tag, kName);
  if (found == 0) return {};
  const std::int32_t start = found + static_cast<std::int32_t>(kName.size());
  std::int32_t end = FindText(start + 1, tag, u" ");
  if (end == 0) {
    end = FindText(start, tag, u">");
  } else if (Holds(ValueBetween(tag, start, end), u"RGB")) {
    end = FindText(start, tag, u")");
  }
  return Text(ValueBetween(tag, start, end));
}

void ReadColour(Apartment& apartment, TextView tag) {
  HtmlToRtfState& state = apartment.html_to_rtf;
  Text colour = ReadRgb(Without(ColourValue(tag), u"\" #;'"));
  NormaliseCssColour(apartment, colour);
  if (colour.empty()) return;
  AddColour(state, colour);
  state.FontStack.Top().colour = ColourNumber(state, colour);
}

// Whether a style property holds a word.
bool StyleHolds(TextView tag, TextView name, TextView word) {
  return Holds(ToLower(Without(ReadSpacedValue(tag, name), u"\" ;")), word);
}

void ReadEffects(HtmlToRtfState& state, TextView tag) {
  FontLevel& level = state.FontStack.Top();
  if (StyleHolds(tag, u"TEXT-DECORATION:", u"line-through")) {
    level.strike = true;
    Append(state, u"{\\strike ");
  }
  if (StyleHolds(tag, u"TEXT-DECORATION:", u"underline")) {
    level.underline = true;
    Append(state, u"\\ul1");
  }
  if (StyleHolds(tag, u"FONT-WEIGHT:", u"bold")) {
    level.bold = true;
    Append(state, u"\\b1");
  }
  if (StyleHolds(tag, u"FONT-STYLE:", u"italic")) {
    level.italic = true;
    Append(state, u"\\i1");
  }
}

void ReadSize(Apartment& apartment, TextView tag) {
  Text size = ReadCssFontSize(apartment, tag);
  if (Holds(size, u"EM")) {
    size = NumberText(ToNumber(ReplaceAll(ReplaceAll(size, u"em", u""), u"EM", u"")) * 12.0);
  }
  if (!size.empty()) apartment.html_to_rtf.FontStack.Top().size = RoundNumberText(size) * std::int64_t{2};
}

void EndHighlight(HtmlToRtfState& state) {
  if (state.HighlightSpans >= 2) {
    state.HighlightSpans += -1;
    return;
  }
  Append(state, u"\\highlight", state.RestoreHighlight);
  state.HighlightSpans = 0;
}

void SwitchOff(HtmlToRtfState& state, const FontLevel& level) {
  if (level.bold) Append(state, u"\\b0");
  if (level.italic) Append(state, u"\\i0");
  if (level.underline) Append(state, u"\\ul0");
  if (level.strike) Append(state, u"}");
}

// Each level above moves down by one; what the closed one switched off is off in all.
void RemoveLevel(HtmlToRtfState& state, std::int32_t index) {
  List<FontLevel>& stack = state.FontStack;
  const FontLevel closed = stack[index];
  for (std::int32_t i = index; i < stack.upper(); ++i) {
    FontLevel above = stack[i + 1];
    above.isSpan = stack[i].isSpan;
    above.bold = above.bold && !closed.bold;
    above.italic = above.italic && !closed.italic;
    above.underline = above.underline && !closed.underline;
    above.strike = above.strike && !closed.strike;
    stack.At(i) = above;
  }
  stack.Pop();
  state.CurrentFont = stack.Top().font;
}

}  // namespace

void OpenSpan(Apartment& apartment, TextView tag) {
  HtmlToRtfState& state = apartment.html_to_rtf;
  if (state.HighlightSpans > 0) ++state.HighlightSpans;
  PushFontLevel(state).isSpan = true;
  ReadFamily(state, tag);
  ReadColour(apartment, tag);
  ReadEffects(state, tag);
  ReadSize(apartment, tag);
}

void CloseSpan(HtmlToRtfState& state) {
  std::int32_t index = state.FontStack.upper();
  while (index >= 0 && !state.FontStack[index].isSpan) --index;
  if (index >= 0) {
    FontLevel& level = state.FontStack.At(index);
    level.isSpan = false;
    SwitchOff(state, level);
    if (index > 0 && state.FontStack[index - 1].font != level.font) {
      Append(state, u"\\f", state.FontStack[index - 1].font);
    }
    RemoveLevel(state, index);
  }
  EndHighlight(state);
}

}  // namespace quillary::HTMLRTFConverter

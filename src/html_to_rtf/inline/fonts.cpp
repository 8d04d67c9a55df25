#include "html_to_rtf/inline/fonts.h"

#include "html_to_rtf/inline/colours.h"
#include "html_to_rtf/inline/font_sizes.h"
#include "html_to_rtf/inline/rtf_words.h"
#include "html_to_rtf/inline/tag_values.h"

namespace quillary::HTMLRTFConverter {
namespace {

void ReadFace(HtmlToRtfState& state, TextView tag) {
  const Text face = ReadQuotedValue(tag, u"FACE");
  if (!face.empty()) return UseFace(state, face);
  const FontLevel& level = state.FontStack.Top();
  Append(state, u"\\f", level.font);
  state.CurrentFont = level.font;
}

// A size with a plus sign counts in half points, any other in steps of HTML.
void ReadSize(FontLevel& level, TextView tag) {
  const Text size = ReadQuotedValue(tag, u"SIZE");
  if (size.starts_with(u'+') && level.size >= 1) {
    level.size = ToInteger16(NumberText(level.size + ToNumber(TextView(size).substr(1))));
  } else if (!size.empty()) {
    level.size = ToInteger16(HtmlFontSize(size, false));
  }
}

// The attribute that the style rules write.
void ReadHalfPoints(FontLevel& level, TextView tag) {
  constexpr TextView kName = u"SIZEPT=";
  const std::int32_t found = FindText(1, tag, kName);
  if (found == 0) return;
  const std::int32_t start = found + static_cast<std::int32_t>(kName.size());
  const Text size = Without(ValueBetween(tag, start, FirstEnd(tag, start, {u" ", u">"})), u"\"");
  if (!size.empty()) level.size = RoundNumberText(size);
}

// BGCOLOR holds the name too.
void ReadColour(Apartment& apartment, TextView tag) {
  HtmlToRtfState& state = apartment.html_to_rtf;
  Text colour = ReadQuotedValue(tag, u"COLOR");
  NormaliseCssColour(apartment, colour);
  if (colour.empty()) return;
  AddColour(state, colour);
  state.FontStack.Top().colour = ColourNumber(state, colour);
}

}  // namespace

FontLevel& PushFontLevel(HtmlToRtfState& state) {
  const FontLevel below = state.FontStack.Top();
  state.FontStack.Push({below.font, below.size, below.colour});
  return state.FontStack.Top();
}

void UseFace(HtmlToRtfState& state, TextView face) {
  AddFont(state, face);
  FontLevel& level = state.FontStack.Top();
  level.font = FindInList(state.FontList, face);
  Append(state, u"\\f", level.font);
  state.CurrentFont = level.font;
}

void OpenFont(Apartment& apartment, TextView tag) {
  HtmlToRtfState& state = apartment.html_to_rtf;
  PushFontLevel(state);
  ReadFace(state, tag);
  FontLevel& level = state.FontStack.Top();
  const Text points = ReadCssFontSize(apartment, tag);
  if (!points.empty()) level.size = RoundNumberText(points) * std::int64_t{2};
  ReadSize(level, tag);
  ReadHalfPoints(level, tag);
  ReadColour(apartment, tag);
}

void CloseFont(HtmlToRtfState& state) {
  state.RestoreHighlight = 5;
  if (state.FontHighlight) {
    state.FontHighlight = false;
    Append(state, u"\\highlight5");
  }
  if (state.FontStack.upper() > 0) state.FontStack.Pop();
  state.CurrentFont = state.FontStack.Top().font;
}

}  // namespace quillary::HTMLRTFConverter

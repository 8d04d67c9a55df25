#include "html_to_rtf/inline/backgrounds.h"

#include "html_to_rtf/inline/colours.h"
#include "html_to_rtf/inline/rtf_words.h"
#include "html_to_rtf/inline/tag_values.h"

namespace quillary::HTMLRTFConverter {
namespace {

// A later source that the tag has takes the place of the value.
void ReadStyle(TextView tag, TextView name, Text& value) {
  const std::int32_t found = FindText(1, tag, name);
  if (found == 0) return;
  const std::int32_t start = found + static_cast<std::int32_t>(name.size());
  std::int32_t end = FindText(start + 1, tag, u" ");
  if (end == 0) {
    end = FindText(start, tag, u">");
  } else if (Holds(ValueBetween(tag, found, end), u"RGB")) {
    end = FindText(found, tag, u")");
  }
  value = ValueBetween(tag, start, end);
}

void ReadAttribute(TextView tag, TextView name, Text& value) {
  const std::int32_t found = FindText(1, tag, name);
  if (found == 0) return;
  const std::int32_t start = found + static_cast<std::int32_t>(name.size());
  value = ValueBetween(tag, start, FirstEnd(tag, start, {u" ", u">"}));
}

}  // namespace

Text ReadBackground(Apartment& apartment, TextView tag) {
  Text value;
  ReadStyle(tag, u"BACKGROUND-COLOR:", value);
  ReadStyle(tag, u"BACKGROUND:", value);
  value = ReadRgb(value);
  ReadAttribute(tag, u"BACK=", value);
  ReadAttribute(tag, u"BGCOLOR=", value);
  NormaliseCssColour(apartment, value);
  if (!value.empty()) AddColour(apartment.html_to_rtf, value);
  return value;
}

void ApplyBackground(Apartment& apartment, TextView tag) {
  if (tag.starts_with(u"<HR")) return;
  const Text colour = ReadBackground(apartment, tag);
  if (colour.empty()) return;
  HtmlToRtfState& state = apartment.html_to_rtf;
  const std::int32_t number = ColourNumber(state, colour);
  if (Holds(tag, u"<FONT")) state.FontHighlight = true;
  if (Holds(tag, u"<SPAN")) {
    state.HighlightSpans = 1;
  } else {
    state.RestoreHighlight = number;
  }
  // The groups of a row and a cell are closed with them.
  const bool row = Holds(tag, u"<TR");
  if (row || Holds(tag, u"<TD")) {
    (row ? OpenLevel(state).rowBrace : OpenLevel(state).cellBrace) = true;
    Append(state, u"{\\highlight", number);
    return;
  }
  if (Holds(tag, u"<TABLE")) OpenLevel(state).highlight = number;
  Append(state, u"\\highlight", number);
}

}  // namespace quillary::HTMLRTFConverter

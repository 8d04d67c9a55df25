#include "html_to_rtf/inline/colours.h"

#include <utility>

#include "html_to_rtf/inline/css_values.rules.h"
#include "html_to_rtf/inline/tag_values.h"
#include "rules/run.h"
#include "text/ascii.h"

namespace quillary::HTMLRTFConverter {
namespace {

void AppendName(TextList& list, Integer16& count, TextView name) {
  list.Grow(count);
  list.Set(count, Text(name));
  ++count;
}

void Add(TextList& list, Integer16& count, TextView name) {
  if (FindInList(list, name) > 0 || (list.has(0) && list[0] == name)) return;
  AppendName(list, count, name);
}

// The number of the digits at `position`. Digits are read one by one from the left: the
// last one of an odd number of them counts alone.
std::int16_t HexadecimalAt(TextView colour, std::int32_t position) {
  const TextView digits = MidView(colour, position, 2);
  int value = 0;
  for (const char16_t unit : digits) {
    const int digit = HexDigitValue(unit);
    if (digit < 0) return 0;
    value = value * 16 + digit;
  }
  return static_cast<std::int16_t>(value);
}

Text PartAsHex(TextView part) {
  Text digits = Trim(part);
  return PercentToByte(digits);
}

}  // namespace

void AddColour(HtmlToRtfState& state, TextView colour) {
  Add(state.ColourList, state.RtfColourCount, colour);
}
void AppendColour(HtmlToRtfState& state, TextView colour) {
  AppendName(state.ColourList, state.RtfColourCount, colour);
}
void AddFont(HtmlToRtfState& state, TextView face) { Add(state.FontList, state.RtfFontCount, face); }

std::int32_t ColourNumber(const HtmlToRtfState& state, TextView colour) {
  return FindInList(state.ColourList, colour) + 1;
}

void NormaliseCssColour(const Apartment& apartment, Text& text) {
  text = ToUpper(Without(text, u" ;'\"#"));
  text = rules::RunOver(chains::CssColourNames, StartRewriting(apartment, std::move(text)));
}

Text ReadRgb(TextView text) {
  if (!Holds(text, u"RGB")) return Text(text);
  const Text parts = Without(ReplaceAll(text, u"RGB", u""), u"()");
  const std::size_t first = parts.find(u',');
  if (first == Text::npos) return {};
  const std::size_t second = parts.find(u',', first + 1);
  if (second == Text::npos) return {};
  const TextView view = parts;
  return PartAsHex(view.substr(0, first)) + PartAsHex(view.substr(first + 1, second - first - 1)) +
         PartAsHex(view.substr(second + 1));
}

std::int16_t ColourRed(TextView colour) { return HexadecimalAt(colour, 1); }
std::int16_t ColourGreen(TextView colour) { return HexadecimalAt(colour, 3); }
std::int16_t ColourBlue(TextView colour) { return HexadecimalAt(colour, 5); }

}  // namespace quillary::HTMLRTFConverter

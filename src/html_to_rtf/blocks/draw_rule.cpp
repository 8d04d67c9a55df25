#include "html_to_rtf/blocks/paragraphs.h"
#include "html_to_rtf/inline/backgrounds.h"
#include "html_to_rtf/inline/colours.h"
#include "html_to_rtf/inline/rtf_words.h"
#include "html_to_rtf/inline/tag_values.h"

namespace quillary::HTMLRTFConverter {
namespace {

// The height of a rule in twips, from pixels.
Integer16 RuleHeight(TextView tag) {
  Text pixels;
  if (const std::int32_t size = FindText(1, tag, u"SIZE="); size > 0) {
    pixels = Without(ValueBetween(tag, size + 5, FirstEnd(tag, size + 5, {u" ", u">"})), u"\"'");
  } else if (const std::int32_t height = FindText(1, tag, u"HEIGHT:"); height > 0) {
    pixels = Without(ValueBetween(tag, height + 7, FirstEnd(tag, height + 7, {u";", u">"})), u"\"'");
    pixels = ReplaceAll(ToUpper(pixels), u"PX", u"");
  }
  return pixels.empty() ? 30 : RoundNumberText(pixels) * 15;
}

}  // namespace

void DrawRule(Apartment& apartment, TextView tag) {
  HtmlToRtfState& state = apartment.html_to_rtf;
  if (state.TableDepth >= 1) return;
  Text colour = ReadBackground(apartment, tag);
  if (colour.empty()) colour = u"000000";
  const Integer16 height = RuleHeight(tag);
  Append(state, u"\r\n\\par\\trowd\\trgaph30\\trrh-", height);
  Append(state, u"\\trleft-30 \\clcbpatraw", ColourNumber(state, colour));
  Append(state, u"\\cellx9514\\intbl\\par\\cell\\row\\pard\\par\r\n");
}

}  // namespace quillary::HTMLRTFConverter

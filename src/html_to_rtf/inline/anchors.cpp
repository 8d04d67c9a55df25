#include "html_to_rtf/inline/anchors.h"

#include "html_to_rtf/inline/colours.h"
#include "html_to_rtf/inline/rtf_words.h"
#include "html_to_rtf/inline/tag_values.h"

namespace quillary::HTMLRTFConverter {

void OpenAnchor(HtmlToRtfState& state, TextView tag) {
  constexpr TextView kName = u"HREF=";
  const std::int32_t found = FindText(1, tag, kName);
  if (found == 0) return;
  // The quotation mark is taken for granted.
  const std::int32_t start = found + static_cast<std::int32_t>(kName.size()) + 1;
  const TextView address = ValueBetween(tag, start, FindText(start, tag, u"\""));
  if (address.empty() || state.InHyperlink) return;
  Append(state, u"{\\field{\\*\\fldinst { HYPERLINK ");
  Append(state, ToLower(address));
  Append(state, u" }}{\\fldrslt {\\ul\\cf", ColourNumber(state, u"0000ff"));
  Append(state, u" ");
  state.InHyperlink = true;
}

void CloseAnchor(HtmlToRtfState& state) {
  if (!state.InHyperlink) return;
  Append(state, u"}}}");
  state.InHyperlink = false;
}

}  // namespace quillary::HTMLRTFConverter

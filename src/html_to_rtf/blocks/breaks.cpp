#include "html_to_rtf/blocks/breaks.h"

#include "html_to_rtf/inline/rtf_words.h"

namespace quillary::HTMLRTFConverter {

void EmitBreak(HtmlToRtfState& state, TextView tag) {
  Append(state, u"\r\n\\par");
  if (state.InListItem) {
    Append(state, u"\\pard");
    AppendTableWords(state);
  }
  if (tag == u"<LI>") Append(state, u" ");
  state.TextOnLine = false;
}

void AppendTableWords(HtmlToRtfState& state) {
  if (state.TableDepth > 0) Append(state, u"\\intbl\\itap", state.TableDepth);
}

}  // namespace quillary::HTMLRTFConverter

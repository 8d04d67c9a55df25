#include "html_to_rtf/driver/document.h"

#include "html_to_rtf/characters/runs.h"
#include "html_to_rtf/inline/colours.h"

namespace quillary::HTMLRTFConverter {
namespace {

// Every font has the one charset of the page.
Text FontTable(const HtmlToRtfState& state) {
  const Text charset = u"\\fcharset" + Decimal(state.DocCharset);
  Text table = u"\\deff0{\\fonttbl";
  for (std::int32_t i = 0; i <= state.FontList.upper(); ++i) {
    table += u"{\\f" + Decimal(i) + u"\\fnil" + charset + u" " + state.FontList[i] + u";}";
  }
  return table + u"}";
}

Text ColourTable(const HtmlToRtfState& state) {
  Text table = u"{\\colortbl ;";
  for (std::int32_t i = 0; i <= state.ColourList.upper(); ++i) {
    const Text& colour = state.ColourList[i];
    table += u"\\red" + Decimal(ColourRed(colour)) + u"\\green" + Decimal(ColourGreen(colour)) + u"\\blue" +
             Decimal(ColourBlue(colour)) + u";";
  }
  return table + u"}";
}

// The numbers of simplified and of traditional Chinese are the wanted ones, whatever a
// reader of them would expect.
std::int32_t DefaultLanguage(const Conversion& conversion) {
  const HtmlToRtfState& state = conversion.apartment.html_to_rtf;
  switch (state.DocCharset) {
    case 134:
      return 1028;
    case 128:
      return 1041;
    case 129:
      return 1042;
    case 136:
      return 1054;
    default:
      return conversion.run_language != 0 ? conversion.run_language : LanguageCode(state, 0);
  }
}

}  // namespace

void AssembleDocument(Conversion& conversion) {
  HtmlToRtfState& state = conversion.state();
  Text& document = conversion.document;
  document = u"{\\rtf1\\ansi" + FontTable(state) + u"\r\n" + ColourTable(state) + u"\r\n\\deflang" +
             Decimal(DefaultLanguage(conversion));
  if (!state.TableFirst) document += u"\\pard\\plain\\tx0";
  document += state.RtfOut;
  document += u"}";
  state.RtfOut.clear();
  state.HtmlWork = rules::Rewriting();
}

}  // namespace quillary::HTMLRTFConverter

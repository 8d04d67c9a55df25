#include "platform/rich_text/writer/plain_text_writer.h"

#include "platform/rich_text/model/symbol_fonts.h"

namespace quillary::platform::rtf {
namespace {

char16_t Shown(char16_t unit, const Font& font) {
  if (!font.IsSymbol() || unit <= kSymbolBase || unit > kSymbolBase + 0xFF) return unit;
  return SymbolCharacter(font.name, static_cast<unsigned char>(unit - kSymbolBase));
}

}  // namespace

Text WritePlainText(const Document& document) {
  constexpr TextView kLineEnd = u"\r\n";
  Text text;
  text.reserve(document.text.size() + document.paragraphs.size());
  std::size_t run = 0;
  std::size_t at = 0;
  for (const Paragraph& paragraph : document.paragraphs) {
    if (paragraph.label != 0) text += document.labels[paragraph.label].text + u"\t";
    for (; at < paragraph.end; ++at) {
      while (run + 1 < document.runs.size() && document.runs[run + 1].begin <= at) ++run;
      const char16_t unit = document.text[at];
      const bool last_cell = unit == structure::kCell && document.text[at + 1] == structure::kRow;
      if (unit >= u' ') {
        text += Shown(unit, document.fonts[document.characters[document.runs[run].format].font]);
      } else if (unit == structure::kTab || (unit == structure::kCell && !last_cell)) {
        text += u'\t';
      } else if (unit == structure::kLine || unit == structure::kRow || unit == structure::kParagraph) {
        text += kLineEnd;
      }
    }
  }
  // The last paragraph's end ends the document.
  text.resize(text.size() - kLineEnd.size());
  return text;
}

}  // namespace quillary::platform::rtf

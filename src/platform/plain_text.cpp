#include "platform/plain_text.h"

#include "platform/byte_text.h"
#include "platform/code_pages.h"
#include "platform/document_builder.h"
#include "platform/symbol_fonts.h"

namespace quillary::platform::rtf {
namespace {

constexpr std::uint16_t kOwnSize = 17;  // half points

/// A unit of the host's text as a character: the bytes that Windows-1252 has
/// beyond Latin-1 may have come as they are.
char16_t Character(char16_t unit) {
  if (unit < 0x80 || unit > 0x9F) return unit;
  const char byte = static_cast<char>(unit);
  return FromWindows1252({&byte, 1}).front();
}

char16_t Shown(char16_t unit, const Font& font) {
  if (!font.IsSymbol() || unit <= kSymbolBase || unit > kSymbolBase + 0xFF) return unit;
  return SymbolCharacter(font.name, static_cast<unsigned char>(unit - kSymbolBase));
}

}  // namespace

Document ReadPlainText(TextView plain) {
  Document document;
  Font font;
  font.charset = 0;
  font.name = u"MS Sans Serif";
  document.fonts.push_back(font);
  CharacterFormat character;
  character.size = kOwnSize;
  const std::uint32_t format = document.characters.Id(character);
  document.text.reserve(plain.size() + 1);
  DocumentBuilder builder(document);
  for (std::size_t at = 0; at < plain.size(); ++at) {
    const char16_t unit = plain[at];
    if (unit == u'\r' || unit == u'\n') {
      if (unit == u'\r' && at + 1 < plain.size() && plain[at + 1] == u'\n') ++at;
      builder.EndParagraph({}, format);
    } else if (unit >= u' ' || unit == marks::kTab || unit == marks::kLine) {
      builder.AddUnit(Character(unit), format);
    }
  }
  if (!builder.ParagraphIsEmpty() || plain.empty() || plain.back() == u'\r' || plain.back() == u'\n') {
    builder.EndParagraph({}, format);
  } else {
    builder.Finish({}, format);
  }
  return document;
}

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
      const bool last_cell = unit == marks::kCell && document.text[at + 1] == marks::kRow;
      if (unit >= u' ') {
        text += Shown(unit, document.fonts[document.characters[document.runs[run].format].font]);
      } else if (unit == marks::kTab || (unit == marks::kCell && !last_cell)) {
        text += u'\t';
      } else if (unit == marks::kLine || unit == marks::kRow || unit == marks::kParagraph) {
        text += kLineEnd;
      }
    }
  }
  // The last paragraph's end ends the document.
  text.resize(text.size() - kLineEnd.size());
  return text;
}

}  // namespace quillary::platform::rtf

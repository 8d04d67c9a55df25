#include "platform/rich_text/reader/plain_text_reader.h"

#include "platform/rich_text/reader/document_builder.h"
#include "text/encodings.h"

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
    } else if (unit >= u' ' || unit == structure::kTab || unit == structure::kLine) {
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

}  // namespace quillary::platform::rtf

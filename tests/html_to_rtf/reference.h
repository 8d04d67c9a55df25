// The steps of html_to_rtf that scan in one pass, word by word: each search begins anew
// and each change is made at once.
#pragma once

#include "html_to_rtf/characters/runs.h"
#include "text/text.h"

namespace quillary::reference {

inline void ConvertTableDivs(Text& page) {
  std::int32_t table = FindText(1, ToUpper(page), u"<TABLE");
  while (table > 0) {
    std::int32_t length = Length(ExtractElement(Mid(page, table), u"TABLE"));
    if (length == 0) throw Failure(Failure::Kind::Argument);
    std::int32_t start = FindText(table, ToUpper(page), u"<DIV");
    while (start > 0 && start < table + length) {
      const std::int32_t end = start + Length(ExtractElement(Mid(page, start), u"DIV"));
      const std::int32_t last = LastPosition(Left(page, end - 1), u"<");
      page = Left(page, last - 1) + u"</P>" + Mid(page, end);
      page = Left(page, start - 1) + u"<P NOPARAGRAPH " + Mid(page, start + 4);
      length += 9;
      start = FindText(table, ToUpper(page), u"<DIV");
    }
    table = FindText(table + length, ToUpper(page), u"<TABLE");
  }
}

inline void DropRepeatedFontTags(Text& page) {
  std::int32_t start = FindText(1, ToUpper(page), u"<FONT");
  while (start > 0) {
    const std::int32_t first = FindText(start, page, u">");
    const std::int32_t second = first > 0 ? FindText(first + 1, page, u">") : 0;
    if (second == 0) return;
    const Text tag = Mid(page, start, first - start + 1);
    if (tag == Mid(page, first + 1, second - first)) {
      page = Left(page, first) + Mid(page, second + 1);
    } else {
      start = FindText(start + 1, ToUpper(page), u"<FONT");
    }
  }
}

inline void DecodeNumericEntities(Text& text) {
  for (std::int32_t at = FindText(1, ToUpper(text), u"&#X"); at > 0;
       at = FindText(at + 1, ToUpper(text), u"&#X")) {
    const std::int32_t end = FindText(at, text, u";");
    if (end != at + 5) continue;
    text = Left(text, at - 1) + u"\\'" + Mid(text, at + 3, 2) + Mid(text, end + 1);
  }
  for (std::int32_t at = FindText(1, text, u"&#"); at > 0; at = FindText(at + 1, text, u"&#")) {
    const std::int32_t end = FindText(at, text, u";");
    if (end == 0) continue;
    const Text digits = Mid(text, at + 2, end - at - 2);
    const Text hexadecimal = Hex(ToInteger32(digits));
    const Text word = hexadecimal.size() == 2 ? u"\\'" + hexadecimal : u"\\u" + digits + u"\\'3F";
    text = Left(text, at - 1) + word + Mid(text, end + 1);
  }
}

inline void EncodeUtf8(Text& text) {
  for (std::int32_t position = 1; position < Length(text); ++position) {
    const int byte = HTMLRTFConverter::AnsiValue(text[static_cast<std::size_t>(position) - 1]);
    if (byte >= 224 && byte <= 239)
      position = HTMLRTFConverter::EncodeUtf8Triple(text, position);
    else if (byte >= 194 && byte <= 223)
      position = HTMLRTFConverter::EncodeUtf8Pair(text, position);
  }
}

}  // namespace quillary::reference

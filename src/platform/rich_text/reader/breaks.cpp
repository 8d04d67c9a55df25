#include "platform/rich_text/reader/breaks.h"

namespace quillary::platform::rtf {

void ReadBreak(const Token& token, TextDecoder& text, Body& body) {
  switch (token.keyword) {
    case Keyword::Par:
      text.Flush();
      return body.EndParagraph();
    case Keyword::Page:
    case Keyword::Sect:
    case Keyword::Column:
      if (body.InRow()) return;
      text.Flush();
      return body.EndParagraph();
    case Keyword::Line:
      return text.AddStructure(structure::kLine);
    case Keyword::Nestcell:
      return text.AddStructure(structure::kTab);
    case Keyword::Nestrow:
      return body.EndNestedRow();
    case Keyword::Cell:
      text.Flush();
      return body.EndCell();
    case Keyword::Row:
      text.Flush();
      return body.EndRow();
    case Keyword::Trowd:
      if (body.IsOneLine()) return;
      text.Flush();
      body.BeginRow();
      break;  // its other meaning is the row definition's
    default:
      break;
  }
  body.ReadRowWord(token);
}

}  // namespace quillary::platform::rtf

#include "platform/rich_text/reader/document_header.h"

#include "platform/rich_text/reader/word_values.h"

namespace quillary::platform::rtf {

bool DocumentHeader::ReadWord(const Token& token) {
  switch (token.keyword) {
    case Keyword::Ansicpg:
      document.states_code_page = true;
      fonts.SetDocumentCodePage(token.number == 0 ? 1252 : token.number);
      return true;
    case Keyword::Mac:
      fonts.SetDocumentCodePage(10000);
      return true;
    case Keyword::Pc:
      fonts.SetDocumentCodePage(437);
      return true;
    case Keyword::Pca:
      fonts.SetDocumentCodePage(850);
      return true;
    case Keyword::Deff:
      fonts.SetDefaultNumber(token.number);
      return true;
    case Keyword::Deflang:
      if (const std::uint16_t language = Language(token.number); language != 0) document.language = language;
      return true;
    case Keyword::Fbidis:
      document.right_to_left = true;
      return true;
    default:
      return false;
  }
}

}  // namespace quillary::platform::rtf

// The header of an RTF text: properties of the document, and the tables to
// whose entries the text refers by number.
#pragma once

#include "platform/rich_text/model/document_model.h"
#include "platform/rich_text/reader/colour_table.h"
#include "platform/rich_text/reader/font_table.h"
#include "platform/rich_text/reader/list_tables.h"
#include "platform/rich_text/reader/style_sheet.h"
#include "platform/rich_text/reader/tokens.h"

namespace quillary::platform::rtf {

struct DocumentHeader {
  explicit DocumentHeader(Document& read) : document(read), fonts(read), colours(read) {}

  /// Takes a word about the document as a whole; false for any other word.
  bool ReadWord(const Token& token);

  Document& document;
  FontTable fonts;
  ColourTable colours;
  StyleSheet styles;
  ListTables lists;
};

}  // namespace quillary::platform::rtf

// The paragraph formatting that holds in a group of an RTF text, and the words
// that change it.
#pragma once

#include <cstdint>

#include "platform/rich_text/model/document_model.h"
#include "platform/rich_text/reader/tokens.h"

namespace quillary::platform::rtf {

struct ParagraphState {
  ParagraphFormat format;
  std::int32_t style = -1;
  std::int32_t list_override = 0;
  std::int32_t list_level = 0;
  Alignment next_tab = Alignment::Left;
  bool in_table = false;
  bool direct = false;
};

/// Takes a word that formats paragraphs; false for any other word.
bool ReadParagraphWord(const Token& token, ParagraphState& state, Document& document);

}  // namespace quillary::platform::rtf

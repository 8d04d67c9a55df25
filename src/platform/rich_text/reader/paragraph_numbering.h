// The list that a paragraph is given by a group of its own, "\pn": the oldest
// kind, and the control's.
#pragma once

#include <cstdint>

#include "platform/rich_text/model/document_model.h"
#include "platform/rich_text/reader/font_table.h"
#include "platform/rich_text/reader/tokens.h"

namespace quillary::platform::rtf {

class ParagraphNumbering {
 public:
  ParagraphNumbering(Document& document, FontTable& fonts) : document_(document), fonts_(fonts) {}

  void Begin();
  void ReadWord(const Token& token);
  void SetBefore(const Text& text) { format_.before = text; }
  void SetAfter(const Text& text) { format_.after = text; }
  /// Id of the list that was read; 0 if the paragraph goes on without a label.
  std::uint32_t End();

 private:
  Document& document_;
  FontTable& fonts_;
  ListFormat format_;  // being read
  bool continues_ = false;
};

}  // namespace quillary::platform::rtf

// The items of the lists in an RTF text: to which list a paragraph belongs, and
// its label there.
#pragma once

#include <cstdint>
#include <optional>
#include <utility>

#include "platform/rich_text/model/document_model.h"
#include "platform/rich_text/reader/document_builder.h"
#include "platform/rich_text/reader/list_tables.h"
#include "platform/rich_text/reader/paragraph_state.h"

namespace quillary::platform::rtf {

class ListItems {
 public:
  ListItems(Document& document, ListTables& tables) : document_(document), tables_(tables) {}

  /// Takes the label of the paragraph as its producer wrote it.
  void SetLabel(Text label) { label_ = std::move(label); }
  /// The paragraph's formatting is reset.
  void ResetParagraph() { label_before_reset_ = label_.has_value(); }
  void EndCell() { label_.reset(); }
  void EndParagraph() {
    label_.reset();
    label_before_reset_ = false;
  }

  /// Resolves the list and the label of a paragraph that ends, or of one that begins in a cell.
  void Resolve(const ParagraphState& state, bool is_empty, ParagraphEnd& paragraph);

 private:
  Document& document_;
  ListTables& tables_;
  std::optional<Text> label_;
  bool label_before_reset_ = false;
  std::uint32_t last_list_ = 0;
  std::int32_t last_number_ = 0;
};

}  // namespace quillary::platform::rtf

// Builds a document from text and structure characters in reading order. It
// resolves what belongs to a table row and what does not.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "platform/rich_text/model/document_model.h"
#include "platform/rich_text/reader/row_words.h"

namespace quillary::platform::rtf {

/// A paragraph as it stands at its end.
struct ParagraphEnd {
  ParagraphFormat format;
  bool in_table = false;
  std::uint32_t label = 0;
  bool stray_bullet = false;
};

class DocumentBuilder {
 public:
  explicit DocumentBuilder(Document& document) : document_(document) {}

  /// `format` is an id of Document::characters.
  void AddText(TextView text, std::uint32_t format);
  void AddUnit(char16_t unit, std::uint32_t format);
  void EndParagraph(const ParagraphEnd& paragraph, std::uint32_t format);

  /// A row definition begins here.
  void BeginRow();
  void EndCell(const ParagraphEnd& paragraph, std::uint32_t format);
  void EndRow(const ParagraphEnd& paragraph, std::uint32_t format);
  /// The row of a nested table: a line of its cell.
  void EndNestedRow(std::uint32_t format);

  /// Closes what is open. `format` is that of an empty document.
  void Finish(const ParagraphEnd& paragraph, std::uint32_t format);

  /// The definition of the row that is open or follows.
  RowWords& RowDefinition() { return row_words_; }
  bool ParagraphIsEmpty() const { return document_.text.size() == paragraph_begin_; }
  bool InRow() const { return row_.has_value(); }

 private:
  /// The row that is open.
  struct Row {
    std::size_t begin;            // in the text
    std::size_t first_paragraph;  // in the list of paragraphs
    std::size_t cells;            // that have ended
    std::size_t cell_begin;
    bool in_table;                          // one of its paragraphs is in a table by its own words
    std::optional<ParagraphFormat> format;  // of its first paragraph
  };

  void UseFormat(std::uint32_t format);
  void PutParagraph(const ParagraphEnd& paragraph);
  Row& OpenRow();
  void InsertRowEnd(std::size_t at);
  void PutRow();
  std::uint32_t LastFormat() const { return document_.runs.empty() ? 0 : document_.runs.back().format; }

  Document& document_;
  std::size_t paragraph_begin_ = 0;
  std::optional<Row> row_;
  bool any_in_table_ = false;  // of the document's paragraphs
  RowWords row_words_;
  std::size_t nested_row_end_ = 0;
};

}  // namespace quillary::platform::rtf

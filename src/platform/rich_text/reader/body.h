// The document's own text while it is read: characters, structure characters
// and paragraphs in the formatting of the deepest group.
#pragma once

#include <cstdint>
#include <utility>

#include "platform/rich_text/model/document_model.h"
#include "platform/rich_text/reader/character_formats.h"
#include "platform/rich_text/reader/document_builder.h"
#include "platform/rich_text/reader/document_header.h"
#include "platform/rich_text/reader/groups.h"
#include "platform/rich_text/reader/list_items.h"

namespace quillary::platform::rtf {

class Body {
 public:
  Body(Document& document, DocumentHeader& header, Groups& groups)
      : document_(document),
        header_(header),
        groups_(groups),
        formats_(document, header, groups),
        items_(document, header.lists),
        builder_(document) {}

  /// Adds what is shown of a text.
  void AddText(TextView text);
  void AddCharacter(char16_t unit);
  /// Adds a tab or a line break.
  void AddStructure(char16_t character);
  /// Adds a picture.
  void AddInline(Inline content);
  /// Adds a text in the format of what stands in front of it.
  void AppendText(TextView text);

  void EndParagraph();
  void BeginRow();
  void EndCell();
  void EndRow();
  /// Ends the row of a nested table.
  void EndNestedRow() { builder_.EndNestedRow(formats_.StructureId()); }
  /// Takes a word of a row definition, and passes over any other.
  void ReadRowWord(const Token& token) { builder_.RowDefinition().Read(token); }
  bool InRow() const { return builder_.InRow(); }
  /// Whether paragraphs and rows are lines: in a footnote, and in a text box in a cell.
  bool IsOneLine() const { return groups_.Top().in_footnote || groups_.Top().within_row; }

  /// A text box stands at its anchor, in paragraphs of its own.
  void BeginTextBox();
  void EndTextBox(const Group& closed);

  /// Ends the document.
  void Finish();

  /// Takes a word that formats characters or paragraphs; false for any other.
  bool ReadFormatWord(const Token& token);
  /// The formatting of the deepest group is no longer what it was.
  void ChangeFormat() { formats_.Change(); }
  void SetWrittenByControl(bool by_control) { formats_.SetWrittenByControl(by_control); }
  /// Takes the label of the paragraph as its producer wrote it.
  void SetLabel(Text label) { items_.SetLabel(std::move(label)); }
  /// What follows for readers without HTML stands for an entity of the page, or no longer does.
  void SetHtmlEntity(bool is_entity) { html_entity_ = is_entity; }

 private:
  bool IsShown(TextView text) const;
  void BeginCellItem();
  ParagraphEnd CurrentParagraph() const;
  void ResolveItem(ParagraphEnd& paragraph);

  Document& document_;
  DocumentHeader& header_;
  Groups& groups_;
  CharacterFormats formats_;
  ListItems items_;
  DocumentBuilder builder_;
  bool html_entity_ = false;
};

}  // namespace quillary::platform::rtf

// Reads an RTF text of any producer into a Document. Every sequence of units
// gives one. One pass, a stack of groups that is bounded, no recursion.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

#include "platform/rich_text/model/document_model.h"
#include "platform/rich_text/reader/byte_text.h"
#include "platform/rich_text/reader/character_state.h"
#include "platform/rich_text/reader/colour_table.h"
#include "platform/rich_text/reader/document_builder.h"
#include "platform/rich_text/reader/font_table.h"
#include "platform/rich_text/reader/hex_bytes.h"
#include "platform/rich_text/reader/list_tables.h"
#include "platform/rich_text/reader/paragraph_state.h"
#include "platform/rich_text/reader/picture_words.h"
#include "platform/rich_text/reader/tokens.h"

namespace quillary::platform::rtf {

class Reader {
 public:
  explicit Reader(TextView rtf);
  Document Read();

 private:
  /// Where the text of a group goes.
  enum class Destination : std::uint8_t {
    Body,
    Nowhere,  // no text of its own, but groups that may hold some
    FontTable,
    FontAlternative,
    ColourTable,
    StyleSheet,
    ListTable,
    LevelText,
    ListOverrides,
    Label,
    Numbering,
    NumberBefore,
    NumberAfter,
    Picture,
    ObjectClass,
    ObjectData,
    FieldInstruction,
    AnsiAndUnicode,  // its first group is for readers that know no Unicode
  };

  struct Group {
    CharacterState character;
    ParagraphState paragraph;
    Destination destination = Destination::Body;
    std::int32_t fallback_length = 1;  // \uc
    bool html_only = false;            // \htmlrtf: for readers that show no HTML
    bool in_equation = false;
    bool in_footnote = false;  // its paragraphs are set apart by a blank
    bool within_row = false;   // a text box in a cell: its paragraphs and tables are lines of the cell
    // What the end of the group ends.
    bool ends_apart = false;
    bool ends_footnote = false;
    bool ends_field = false;
    bool ends_object = false;
  };
  struct Style {
    CharacterState character;
    ParagraphState paragraph;
  };
  struct Field {
    Text instruction;
    std::optional<std::size_t> result_begin;
  };
  struct Object {
    EmbeddedObject object;
    bool embedded = false;
    std::size_t result_begin = 0;
  };

  // rtf_reader.cpp: groups, words and the text between them
  void OpenGroup();
  void CloseGroup();
  void ReadWord(const Token& token);
  void ReadSymbol(char16_t sign);
  void ReadByte(unsigned char byte);
  void ReadPlain(TextView plain);
  void ReadUnit(char16_t unit);
  void ReadUnicode(std::int32_t number);
  void ReadBinary(TextView bytes);
  void ReadDestinationText(TextView text);
  void ReleaseBlanks();
  bool ReadHeaderWord(const Token& token);
  bool ReadDestinationWord(const Token& token);
  Group& Top() { return groups_.back(); }
  bool InBody() const { return groups_.back().destination == Destination::Body; }

  // rtf_destinations.cpp: words that make a group more than a group
  bool OpenDestination(const Token& token);
  bool OpenTable(const Token& token);
  bool OpenPart(const Token& token);
  void SkipGroup();
  void EndDestination(const Group& closed);
  void EndStyle(const Group& closed);
  void EndPicture();
  void EndObject();
  void EndField();
  void BeginApart();
  void AddFootnoteBracket(TextView bracket);

  // rtf_body.cpp: text, marks and paragraphs
  bool ReadBodyWord(const Token& token);
  bool ReadCharacterName(Keyword keyword);
  bool ReadBreak(Keyword keyword);
  void AddText(TextView text);
  void AddCharacter(char16_t unit);
  void AddMark(char16_t mark);
  void FlushBytes();
  void FlushAllBytes();
  bool IsShown(TextView text);
  std::uint32_t FormatId();
  std::uint32_t MarkFormatId();
  void EndParagraph();
  ParagraphEnd CurrentParagraph();
  void Finish();

  // rtf_numbering.cpp: lists
  void ReadNumberingWord(const Token& token);
  void EndNumbering();
  void ResolveList(ParagraphEnd& paragraph);
  void BeginCellItem();

  TextView rtf_;
  Tokens tokens_;
  std::size_t last_close_;  // where the last closing brace stands
  Document document_;
  DocumentBuilder builder_{document_};
  FontTable fonts_{document_};
  ColourTable colours_{document_};
  ListTables lists_;
  ByteText bytes_;

  std::vector<Group> groups_;
  std::size_t lost_groups_ = 0;  // open groups beyond the deepest that is kept
  bool group_start_ = false;     // nothing but "\*" was read of the group
  bool starred_ = false;
  TextView held_blanks_;  // at the start of a group: text, unless the group turns out to hold none
  bool surplus_ = false;  // the document's group was closed more than once
  bool done_ = false;
  bool controls_own_ = false;       // the control wrote the text itself
  std::int32_t fallback_left_ = 0;  // signs still to be passed over behind \u

  bool format_changed_ = true;
  std::uint32_t format_ = 0;

  std::unordered_map<std::int32_t, Style> styles_;
  Text gathered_;  // text of the destination that is being read

  Text label_;
  bool has_label_ = false;
  bool label_before_pard_ = false;
  ListFormat numbering_;  // being read
  bool numbering_continues_ = false;
  std::uint32_t last_list_ = 0;
  std::int32_t last_number_ = 0;

  PictureWords picture_words_;
  HexBytes picture_data_;
  HexBytes object_data_;
  std::size_t picture_shown_at_ = static_cast<std::size_t>(-1);
  std::vector<Field> fields_;
  std::vector<Object> objects_;
  std::int32_t footnotes_ = 0;
  bool html_entity_ = false;
};

}  // namespace quillary::platform::rtf

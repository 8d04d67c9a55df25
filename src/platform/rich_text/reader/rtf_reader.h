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
#include "platform/rich_text/reader/character_formats.h"
#include "platform/rich_text/reader/document_builder.h"
#include "platform/rich_text/reader/document_header.h"
#include "platform/rich_text/reader/groups.h"
#include "platform/rich_text/reader/hex_bytes.h"
#include "platform/rich_text/reader/list_items.h"
#include "platform/rich_text/reader/paragraph_numbering.h"
#include "platform/rich_text/reader/picture_words.h"
#include "platform/rich_text/reader/tokens.h"

namespace quillary::platform::rtf {

class Reader {
 public:
  explicit Reader(TextView rtf);
  Document Read();

 private:
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
  Group& Top() { return groups_.Top(); }
  bool InBody() const { return groups_.InBody(); }

  // rtf_destinations.cpp: words that make a group more than a group
  bool OpenDestination(const Token& token);
  bool OpenTable(const Token& token);
  bool OpenPart(const Token& token);
  void SkipGroup();
  void EndDestination(const Group& closed);
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
  void EndParagraph();
  ParagraphEnd CurrentParagraph();
  void BeginCellItem();
  void Finish();

  TextView rtf_;
  Tokens tokens_;
  std::size_t last_close_;  // where the last closing brace stands
  Document document_;
  DocumentBuilder builder_{document_};
  DocumentHeader header_{document_};
  Groups groups_;
  CharacterFormats formats_{document_, header_, groups_};
  ListItems items_{document_, header_.lists};
  ParagraphNumbering numbering_{document_, header_.fonts};
  ByteText bytes_;

  bool group_start_ = false;  // nothing but "\*" was read of the group
  bool starred_ = false;
  TextView held_blanks_;  // at the start of a group: text, unless the group turns out to hold none
  bool surplus_ = false;  // the document's group was closed more than once
  bool done_ = false;
  std::int32_t fallback_left_ = 0;  // signs still to be passed over behind \u

  Text gathered_;  // text of the destination that is being read

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

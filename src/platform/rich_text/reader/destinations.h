// The groups of an RTF text whose content is no text of the body: tables of the
// header, labels, pictures, objects and fields. Their words and their text go to
// the part that reads them.
#pragma once

#include "platform/rich_text/model/document_model.h"
#include "platform/rich_text/reader/body.h"
#include "platform/rich_text/reader/document_header.h"
#include "platform/rich_text/reader/fields.h"
#include "platform/rich_text/reader/groups.h"
#include "platform/rich_text/reader/objects.h"
#include "platform/rich_text/reader/paragraph_numbering.h"
#include "platform/rich_text/reader/pictures.h"
#include "platform/rich_text/reader/tokens.h"

namespace quillary::platform::rtf {

class Destinations {
 public:
  Destinations(Document& document, DocumentHeader& header, Groups& groups, Body& body)
      : header_(header),
        groups_(groups),
        body_(body),
        numbering_(document, header.fonts),
        pictures_(document, body),
        objects_(document),
        fields_(document, body) {}

  /// Takes the first word of a group if it makes the group a destination.
  Opening Open(Keyword keyword);
  /// Takes a word that makes the group in which it stands a picture, an object,
  /// a field or a part of them, wherever in the group it stands.
  Opening OpenContent(const Token& token);

  /// Takes a word that means something of its own in the deepest group; false for any other.
  bool ReadWord(const Token& token);
  /// Takes text of the deepest group, which is not the body.
  void ReadText(TextView text);
  /// Takes a byte before it is decoded; false where the code page of the font is that of the byte.
  bool ReadByte(unsigned char byte);
  void ReadBinary(TextView bytes);

  /// Takes what was read in a group that was closed.
  void End(const Group& closed);
  /// Ends the field and the object that end with the group.
  void EndContent(const Group& closed);

 private:
  DocumentHeader& header_;
  Groups& groups_;
  Body& body_;
  ParagraphNumbering numbering_;
  Pictures pictures_;
  Objects objects_;
  Fields fields_;
  Text gathered_;  // text of the destination that was opened last
};

}  // namespace quillary::platform::rtf

// The formats of the characters that are read: what the words of the groups and
// the tables of the header make of them.
#pragma once

#include <cstdint>

#include "platform/rich_text/model/document_model.h"
#include "platform/rich_text/reader/document_header.h"
#include "platform/rich_text/reader/groups.h"

namespace quillary::platform::rtf {

class CharacterFormats {
 public:
  CharacterFormats(Document& document, DocumentHeader& header, const Groups& groups)
      : document_(document), header_(header), groups_(groups) {}

  /// Whether the control wrote the text itself: then its formats are taken as they are.
  void SetWrittenByControl(bool by_control) { by_control_ = by_control; }
  /// The formatting of the deepest group is no longer what it was.
  void Change() { changed_ = true; }

  /// Id of the format of a character that would be read now.
  std::uint32_t Id() {
    if (changed_) Resolve();
    return id_;
  }
  /// The same for a structure character that nobody sees.
  std::uint32_t StructureId();

 private:
  void Resolve();

  Document& document_;
  DocumentHeader& header_;
  const Groups& groups_;
  bool by_control_ = false;
  bool changed_ = true;
  std::uint32_t id_ = 0;
};

}  // namespace quillary::platform::rtf

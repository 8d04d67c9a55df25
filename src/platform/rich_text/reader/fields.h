// The fields of an RTF text. The text of a field is its result; links and
// symbols also take something from the instruction.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "platform/rich_text/model/document_model.h"
#include "platform/rich_text/reader/body.h"
#include "platform/rich_text/reader/groups.h"
#include "platform/rich_text/reader/keywords.h"

namespace quillary::platform::rtf {

class Fields {
 public:
  Fields(const Document& document, Body& body) : document_(document), body_(body) {}

  /// Takes a word that makes `group` a field or a part of one.
  Opening Open(Keyword keyword, Group& group);
  /// The instruction of the innermost field.
  Text& Instruction() { return open_.back().instruction; }
  /// The group of the innermost field, which stands in `outer`, ends.
  void End(const Group& outer);

 private:
  struct Field {
    Text instruction;
    std::optional<std::size_t> result_begin;
  };

  const Document& document_;
  Body& body_;
  std::vector<Field> open_;
};

}  // namespace quillary::platform::rtf

// The embedded objects of an RTF text.
#pragma once

#include <cstddef>
#include <vector>

#include "platform/rich_text/model/document_model.h"
#include "platform/rich_text/reader/groups.h"
#include "platform/rich_text/reader/hex_bytes.h"
#include "platform/rich_text/reader/tokens.h"

namespace quillary::platform::rtf {

class Objects {
 public:
  explicit Objects(Document& document) : document_(document) {}

  /// Takes a word that makes `group` an object or describes the one in which it stands.
  Opening Open(const Token& token, Group& group);
  void SetClass(const Text& name);
  void ReadDigits(TextView digits) { data_.Add(digits); }
  void ReadBytes(TextView bytes) { data_.AddRaw(bytes); }
  void EndData();
  /// The group of the innermost object ends. The object keeps its data where
  /// its result is one picture; else the result stands for it.
  void End();

 private:
  struct Object {
    EmbeddedObject object;
    bool embedded = false;
    std::size_t result_begin = 0;
  };

  Document& document_;
  std::vector<Object> open_;
  HexBytes data_;
};

}  // namespace quillary::platform::rtf

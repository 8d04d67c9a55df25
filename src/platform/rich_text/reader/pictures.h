// The pictures of an RTF text.
#pragma once

#include <cstddef>
#include <optional>

#include "platform/rich_text/model/document_model.h"
#include "platform/rich_text/reader/body.h"
#include "platform/rich_text/reader/groups.h"
#include "platform/rich_text/reader/hex_bytes.h"
#include "platform/rich_text/reader/picture_words.h"
#include "platform/rich_text/reader/tokens.h"

namespace quillary::platform::rtf {

class Pictures {
 public:
  Pictures(const Document& document, Body& body) : document_(document), body_(body) {}

  /// Takes a word that makes `group` a picture or holds one.
  Opening Open(Keyword keyword, Group& group);
  void ReadWord(const Token& token) { words_.Read(token); }
  void ReadDigits(TextView digits) { data_.Add(digits); }
  void ReadBytes(TextView bytes) { data_.AddRaw(bytes); }
  /// The picture is complete. It goes into the body if it stands in `outer`.
  void End(const Group& outer);

 private:
  const Document& document_;
  Body& body_;
  PictureWords words_;  // being read
  HexBytes data_;
  std::optional<std::size_t> shown_at_;  // where the last one ends in the text
};

}  // namespace quillary::platform::rtf

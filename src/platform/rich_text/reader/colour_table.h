// Reads the colour table of an RTF text.
#pragma once

#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

#include "platform/rich_text/model/document_model.h"
#include "platform/rich_text/reader/tokens.h"

namespace quillary::platform::rtf {

class ColourTable {
 public:
  explicit ColourTable(Document& document) : document_(document) {}

  void ReadWord(const Token& token);
  void ReadText(TextView text);

  /// The colour as CharacterFormat holds it: 0, automatic, for an entry without
  /// a colour and for a number without an entry. Entry 0 is automatic in one
  /// dialect and a colour in the other.
  std::uint16_t Id(std::int32_t number) const;
  bool IsWhite(std::int32_t number) const;

 private:
  void EndEntry();

  Document& document_;
  std::vector<std::uint16_t> entries_;  // ids, by number
  std::optional<Colour> entry_;         // being read
  std::unordered_map<std::uint32_t, std::uint16_t> ids_;
};

}  // namespace quillary::platform::rtf

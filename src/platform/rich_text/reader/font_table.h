// Reads the font table of an RTF text and answers which font a number means.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>

#include "platform/rich_text/model/document_model.h"
#include "platform/rich_text/reader/tokens.h"

namespace quillary::platform::rtf {

class FontTable {
 public:
  explicit FontTable(Document& document) : document_(document) {}

  /// What stands in the table. An entry ends at its semicolon or where the next one begins.
  void ReadWord(const Token& token);
  void ReadText(TextView text);
  void ReadByte(unsigned char byte);
  /// The other name of the font that is being read.
  void SetAlternativeName(const Text& name) { entry_.alternative_name = name; }
  /// The table is complete.
  void Close();

  void SetDefaultNumber(std::int32_t number) { default_number_ = number; }
  void SetDocumentCodePage(int code_page) { document_code_page_ = code_page; }

  /// Index of the font in the document. A font that is not defined is the
  /// default font; if that is not defined either, the first that shows letters.
  std::uint16_t Index(std::int32_t number);
  /// Code page of the bytes in this font; that of the document for a font that is not defined.
  int CodePage(std::int32_t number) const;
  bool IsSymbol(std::int32_t number) const;

 private:
  struct Entry {
    Font font;
    std::int32_t number = 0;
    bool is_open = false;
    std::string bytes;  // of the name
    Text alternative_name;
  };

  void EndEntry();
  std::optional<std::uint16_t> FindIndex(std::int32_t number) const;
  const Font* Find(std::int32_t number) const;
  int CodePageOfCharset(const Font& font) const;

  Document& document_;
  std::unordered_map<std::int32_t, std::uint16_t> indexes_;
  std::int32_t default_number_ = 0;
  std::optional<std::uint16_t> first_with_letters_;
  int document_code_page_ = 1252;
  bool western_means_document_ = false;

  Entry entry_;  // being read
};

}  // namespace quillary::platform::rtf

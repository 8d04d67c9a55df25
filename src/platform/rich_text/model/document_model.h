// The document model of the rich text control: one text with structure characters
// in it for everything that is no character, runs of character formatting over
// it, and paragraphs. A table row is one paragraph, in which each cell ends with a
// structure character.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <unordered_map>
#include <vector>

#include "text/text.h"

namespace quillary::platform::rtf {

/// Characters of the text that stand for its structure.
namespace structure {
inline constexpr char16_t kObject = 1;  // a picture or an embedded object
inline constexpr char16_t kRow = 5;     // ends a table row
inline constexpr char16_t kCell = 7;    // ends a cell
inline constexpr char16_t kTab = 9;
inline constexpr char16_t kLine = 11;       // a line break within a paragraph
inline constexpr char16_t kParagraph = 13;  // ends a paragraph
}  // namespace structure

/// A byte of a symbol font is the character 0xF000 + byte.
inline constexpr char16_t kSymbolBase = 0xF000;

enum Effect : std::uint16_t {
  kBold = 1,
  kItalic = 2,
  kUnderline = 4,
  kStrike = 8,
  kSuperscript = 16,
  kSubscript = 32,
};

struct CharacterFormat {
  std::uint16_t font = 0;       // index into Document::fonts
  std::uint16_t size = 24;      // in half points
  std::uint16_t colour = 0;     // 0 is automatic, else the index into Document::colours + 1
  std::uint16_t highlight = 0;  // as colour; 0 is none
  std::uint16_t language = 0;
  std::uint16_t effects = 0;
  std::int16_t spacing = 0;  // between characters, in twips
  std::int16_t rise = 0;     // above the base line, in half points

  bool operator==(const CharacterFormat&) const = default;
};

enum class Alignment : std::uint8_t { Left, Centre, Right, Justified };

struct TabStop {
  std::int32_t position = 0;
  Alignment kind = Alignment::Left;  // Justified is a decimal tab

  bool operator==(const TabStop&) const = default;
};

struct ParagraphFormat {
  std::int32_t first_indent = 0;
  std::int32_t left_indent = 0;
  std::int32_t right_indent = 0;
  std::int32_t space_before = 0;
  std::int32_t space_after = 0;
  std::int32_t line_spacing = 0;
  std::uint32_t tabs = 0;  // id of a tab set
  std::uint32_t list = 0;  // id of a list format, 0 is none
  std::uint32_t row = 0;   // id of a row definition, 0 is no table row
  Alignment alignment = Alignment::Left;
  std::uint8_t line_multiple = 0;
  bool keep = false;
  bool keep_next = false;
  bool no_widow_control = false;
  bool right_to_left = false;
  std::array<std::uint8_t, 2> unused{};  // so that equal formats are equal bytes

  bool operator==(const ParagraphFormat&) const = default;
};

enum class NumberStyle : std::uint8_t { Decimal, UpperLetter, LowerLetter, UpperRoman, LowerRoman };

/// What stands in front of the items of a list.
struct ListFormat {
  bool bullet = true;
  NumberStyle style = NumberStyle::Decimal;
  std::optional<std::uint16_t> font;  // nothing: the control's own bullet font, or font 0 of a number
  std::int32_t indent = 0;
  std::optional<std::int32_t> start;  // nothing: the number of the first item
  Text before;                        // the number
  Text after;

  bool operator==(const ListFormat&) const = default;
};

struct Font {
  std::string_view family = "fnil";
  std::optional<std::int32_t> pitch;
  std::optional<std::int32_t> charset;
  Text name;
  int code_page = 0;  // 0: that of the document

  bool IsSymbol() const { return charset == 2; }
};

struct Colour {
  std::uint8_t red = 0;
  std::uint8_t green = 0;
  std::uint8_t blue = 0;

  bool operator==(const Colour&) const = default;
};

struct Picture {
  Text words;        // the control words, in the control's order
  std::string data;  // bytes
};

/// An object keeps the picture of its result.
struct EmbeddedObject {
  Text object_class;
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::string data;
};

struct Inline {
  Picture picture;
  std::unique_ptr<EmbeddedObject> object;
};

/// From `begin` up to the next run.
struct Run {
  std::size_t begin = 0;
  std::uint32_t format = 0;
};

/// The number of a list item.
struct Label {
  Text text;
  std::int32_t ordinal = 1;
};

struct Paragraph {
  std::size_t end = 0;  // after its structure character
  std::uint32_t format = 0;
  std::uint32_t label = 0;    // index into Document::labels, 0 is none
  bool stray_bullet = false;  // the control wrote the last list's bullet in front of it by mistake
};

/// Distinct values, each under one id, in the order in which they came.
template <class Value>
class Pool {
  static_assert(std::has_unique_object_representations_v<Value>);

 public:
  Pool() { Id(Value{}); }

  std::uint32_t Id(const Value& value) {
    const std::string_view bytes(reinterpret_cast<const char*>(&value), sizeof value);
    const auto [entry, is_new] =
        ids_.try_emplace(std::string(bytes), static_cast<std::uint32_t>(values_.size()));
    if (is_new) values_.push_back(value);
    return entry->second;
  }
  const Value& operator[](std::uint32_t id) const { return values_[id]; }

 private:
  std::vector<Value> values_;
  std::unordered_map<std::string, std::uint32_t> ids_;
};

/// What the control holds.
struct Document {
  Text text;
  std::vector<Run> runs;
  std::vector<Paragraph> paragraphs;
  std::vector<Inline> inlines;  // in the order of their structure characters

  Pool<CharacterFormat> characters;
  Pool<ParagraphFormat> formats;
  std::vector<std::vector<TabStop>> tabs = {{}};
  std::vector<ListFormat> lists = {{}};
  std::vector<Text> rows = {{}};  // in the words of the canonical form
  std::vector<Label> labels = {{}};

  std::vector<Font> fonts;
  std::vector<Colour> colours;

  bool right_to_left = false;  // \fbidis: every paragraph states its direction
  bool states_code_page = true;
  std::int32_t language = 1033;
  std::size_t source_units = 0;  // length of the RTF that was read, 0 if it was none

  /// Ids of values, the same one for equal values.
  std::uint32_t TabsId(const std::vector<TabStop>& stops);
  std::uint32_t ListId(const ListFormat& format);
  std::uint32_t RowId(const Text& words);

 private:
  std::unordered_map<Text, std::uint32_t> tab_ids_;
  std::unordered_map<Text, std::uint32_t> list_ids_;
  std::unordered_map<Text, std::uint32_t> row_ids_;
};

}  // namespace quillary::platform::rtf

// The font and colour table of a document in canonical form: which numbers its
// fonts and colours have there.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/rich_text/model/document_model.h"

namespace quillary::platform::rtf {

class CanonicalTables {
 public:
  explicit CanonicalTables(const Document& document);

  std::int32_t FontNumber(std::uint16_t index) const { return font_numbers_[index]; }
  /// The font of a list's bullets.
  std::int32_t BulletFont(const ListFormat& list) const;
  /// Number of a colour by its id; 0 is automatic.
  std::int32_t ColourNumber(std::uint16_t id) const {
    return id == 0 ? 0 : colour_numbers_[id - std::size_t{1}];
  }
  /// Whether a paragraph's format is not that of the one before, as written.
  bool FormatChanges(std::size_t paragraph) const { return format_changes_[paragraph]; }
  /// Whether the control takes font 0 for granted at the start of a document.
  bool StartsInFontZero() const;

  /// The header with both tables, up to the view words.
  Text Header() const;

 private:
  struct Use;  // what the text uses

  void NumberFonts(const Use& use);
  void NumberColours(const Use& use);
  void NumberManyColours(const Use& use, const std::vector<std::uint16_t>& order);
  bool NumbersCollide() const;

  const Document& document_;
  std::vector<std::int32_t> font_numbers_;  // by index
  std::vector<Text> font_entries_;          // by number, what follows the number
  std::int32_t own_bullet_font_ = 0;
  std::vector<bool> format_changes_;          // by paragraph
  std::vector<std::int32_t> colour_numbers_;  // by id - 1
  std::vector<Colour> colour_entries_;        // by number - 1
};

}  // namespace quillary::platform::rtf

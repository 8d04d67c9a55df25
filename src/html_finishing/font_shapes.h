// The font tags that a page of this program can hold: their shapes, and the
// names that the document gives them.
#pragma once

#include <cstddef>
#include <optional>
#include <unordered_map>
#include <vector>

#include "apartment/rtf_to_html_state.h"
#include "text/text.h"

namespace quillary::html_finishing {

/// Font tags are known in the sizes 0 to this one.
inline constexpr int kLastSize = 30;

/// The attributes of a tag in their order.
enum class FontShape { SizeFaceColour, FaceSizeColour, FaceSize, SizeFace, FaceColour, Colour, Other };

/// A tag of upper-case attributes, each with a value in double quotes.
struct FontTag {
  FontShape shape = FontShape::Other;
  TextView size;
  TextView face;
  TextView colour;
  bool space_before_end = false;  // in front of its ">"
  TextView source;
};

/// The tag at the 0-based offset `at`, where "<font " stands; nothing for a
/// tag that is made of anything else.
std::optional<FontTag> ReadFontTag(TextView text, std::size_t at);

/// The number of a size in plain decimal, -1 for anything but 0 to 30.
int SizeNumber(TextView size);

/// The document's own names, trimmed.
class FontNames {
 public:
  /// Throws Failure (subscript) for a count beyond its list.
  explicit FontNames(const RtfToHtmlState& state);
  FontNames(const FontNames&) = delete;
  FontNames& operator=(const FontNames&) = delete;

  /// Of the entries 0 to the font count.
  const std::vector<Text>& faces() const { return faces_; }
  /// Of the entries 1 to the colour count; none if there is no colour list.
  const std::vector<Text>& colours() const { return colours_; }

  /// The first index of a name in its list, or -1.
  int FaceIndex(TextView name) const { return Find(face_index_, name); }
  int ColourIndex(TextView name) const { return Find(colour_index_, name); }

  /// Whether no name holds a character that ends a value or a tag. Only then is a
  /// tag what it looks like, and no replacement can make another one.
  bool plain() const { return plain_; }

 private:
  using Index = std::unordered_map<TextView, int>;
  static int Find(const Index& index, TextView name) {
    const auto found = index.find(name);
    return found == index.end() ? -1 : found->second;
  }

  std::vector<Text> faces_;
  std::vector<Text> colours_;
  Index face_index_;
  Index colour_index_;
  bool plain_ = true;
};

}  // namespace quillary::html_finishing

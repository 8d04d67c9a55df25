#include "html_finishing/font_shapes.h"

#include <string_view>

#include "text/ascii.h"

namespace quillary::html_finishing {
namespace {

constexpr TextView kTagStart = u"<font";

FontShape ShapeOf(std::string_view order) {
  if (order == "SFC") return FontShape::SizeFaceColour;
  if (order == "FSC") return FontShape::FaceSizeColour;
  if (order == "FS") return FontShape::FaceSize;
  if (order == "SF") return FontShape::SizeFace;
  if (order == "FC") return FontShape::FaceColour;
  if (order == "C") return FontShape::Colour;
  return FontShape::Other;
}

bool IsPlain(TextView name) { return name.find_first_of(u"<>\"") == TextView::npos; }

// Enters each name with its first index. Returns whether all are plain.
bool Register(const std::vector<Text>& names, std::unordered_map<TextView, int>& index) {
  bool plain = true;
  for (std::size_t i = 0; i < names.size(); ++i) {
    index.try_emplace(names[i], static_cast<int>(i));
    plain = plain && IsPlain(names[i]);
  }
  return plain;
}

}  // namespace

std::optional<FontTag> ReadFontTag(TextView text, std::size_t at) {
  FontTag tag;
  std::string order;
  std::size_t here = at + kTagStart.size();
  while (true) {
    const TextView rest = text.substr(here);
    if (rest.starts_with(u'>') || rest.starts_with(u" >")) {
      tag.space_before_end = rest[0] == u' ';
      here += tag.space_before_end ? 2 : 1;
      break;
    }
    TextView* value = nullptr;
    std::size_t name_length = 0;
    if (rest.starts_with(u" SIZE=\"")) {
      value = &tag.size, name_length = 7;
    } else if (rest.starts_with(u" FACE=\"")) {
      value = &tag.face, name_length = 7;
    } else if (rest.starts_with(u" COLOR=\"")) {
      value = &tag.colour, name_length = 8;
    }
    if (value == nullptr || order.size() == 3) return std::nullopt;
    order += static_cast<char>(rest[1]);
    const std::size_t quote = rest.find_first_of(u"\"<>", name_length);
    if (quote == TextView::npos || rest[quote] != u'"') return std::nullopt;
    *value = rest.substr(name_length, quote - name_length);
    here += quote + 1;
  }
  tag.shape = ShapeOf(order);
  tag.source = text.substr(at, here - at);
  return tag;
}

int SizeNumber(TextView size) {
  if (size.empty() || size.size() > 2 || (size.size() == 2 && size[0] == u'0')) return -1;
  int number = 0;
  for (const char16_t digit : size) {
    if (!IsAsciiDigit(digit)) return -1;
    number = number * 10 + (digit - u'0');
  }
  return number <= kLastSize ? number : -1;
}

FontNames::FontNames(const RtfToHtmlState& state) {
  const bool has_colours = !IsListEmpty(state.ColourTable) && state.ColourCount != 0;
  for (std::int32_t font = 0; font <= state.FontCount; ++font) faces_.push_back(Trim(state.FontFaces[font]));
  for (std::int32_t colour = 1; has_colours && colour <= state.ColourCount; ++colour) {
    colours_.push_back(Trim(state.ColourTable[colour]));
  }
  const bool plain_faces = Register(faces_, face_index_);
  const bool plain_colours = Register(colours_, colour_index_);
  plain_ = plain_faces && plain_colours;
}

}  // namespace quillary::html_finishing

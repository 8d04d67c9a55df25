// The removal of font tags.
#include <algorithm>
#include <optional>

#include "html_finishing/font_shapes.h"
#include "html_finishing/font_turns.h"
#include "rules/rewriting.h"

namespace quillary::html_finishing {
namespace {

constexpr TextView kFont = u"<font ";
constexpr TextView kBlack = u"#000000";

// One of the document's colours, with or without a number sign too many.
bool IsOwnColour(TextView colour, const FontNames& names) {
  return names.ColourIndex(colour) >= 0 ||
         (colour.starts_with(u'#') && names.ColourIndex(colour.substr(1)) >= 0);
}

bool Knows(const FontTag& tag, const FontNames& names) {
  const bool face = names.FaceIndex(tag.face) >= 0;
  const bool size = SizeNumber(tag.size) >= 0;
  switch (tag.shape) {
    case FontShape::SizeFaceColour:
    case FontShape::FaceSizeColour:
      return size && face && (tag.colour == kBlack || IsOwnColour(tag.colour, names));
    case FontShape::FaceSize:
    case FontShape::SizeFace:
      return size && face && tag.space_before_end;
    case FontShape::FaceColour:
      return face && (tag.colour == kBlack || IsOwnColour(tag.colour, names));
    case FontShape::Colour:
      return IsOwnColour(tag.colour, names);
    default:
      return false;
  }
}

// The page without its tags, in one way through it. Nothing for a page with a
// tag inside another one: what stood around such a tag can be a tag next.
std::optional<Text> WithoutTags(TextView page, const FontNames& names) {
  Text out;
  out.reserve(page.size());
  bool inside = false;  // after a "<" without its ">"
  std::size_t at = 0;
  while (at < page.size()) {
    const std::size_t next = std::min(page.find(u'<', at), page.size());
    const TextView between = page.substr(at, next - at);
    inside = inside && between.find(u'>') == TextView::npos;
    out += between;
    at = next;
    if (at == page.size()) break;
    if (page.substr(at).starts_with(kFont)) {
      const std::optional<FontTag> tag = ReadFontTag(page, at);
      if (tag && Knows(*tag, names)) {
        if (inside) return std::nullopt;
        at += tag->source.size();
        continue;
      }
    }
    inside = true;
    out += page[at++];
  }
  return out;
}

class RemovalTurns : public FontTurns {
 public:
  RemovalTurns(rules::Rewriting& page, const FontNames& names) : FontTurns(page, names, u"<font COLOR=\"") {}

 private:
  void DropBoth(TextView tag_to_colour, TextView colour) {
    ReplaceBoth(Joined({tag_to_colour, colour, u"\""}), u"");
  }

  void RunFaceRows(const Text& size, const Text* own_colour, const Text& face) override {
    const Text size_face = Joined({u"<font SIZE=\"", size, u"\" FACE=\"", face, u"\""});
    const Text face_size = Joined({u"<font FACE=\"", face, u"\" SIZE=\"", size, u"\""});
    for (const Text& tag : {size_face, face_size}) {
      const Text to_colour = tag + u" COLOR=\"";
      if (own_colour != nullptr) {
        DropBoth(to_colour, *own_colour);
        DropBoth(to_colour, u"#" + *own_colour);
      }
      DropBoth(to_colour, kBlack);
    }
    Replace(face_size + u" >", u"");
    Replace(size_face + u" >", u"");
    if (own_colour == nullptr) return;
    const Text face_to_colour = Joined({u"<font FACE=\"", face, u"\" COLOR=\""});
    DropBoth(face_to_colour, *own_colour);
    DropBoth(face_to_colour, u"#" + *own_colour);
  }

  void RunColourRows(const Text& own_colour) override {
    DropBoth(u"<font COLOR=\"", own_colour);
    DropBoth(u"<font COLOR=\"", u"#" + own_colour);
  }

  void RunBlackRows(const Text*, const Text& face) override {
    DropBoth(Joined({u"<font FACE=\"", face, u"\" COLOR=\""}), kBlack);
  }
};

}  // namespace

void DropFullShapes(rules::Rewriting& text, const RtfToHtmlState& state) {
  const FontNames names(state);
  if (!text.Holds(kFont, Compare::Binary)) return;
  std::optional<Text> without;
  if (names.plain()) without = WithoutTags(text.text(), names);
  if (without) {
    text.Assign(std::move(*without));
  } else {
    RemovalTurns(text, names).Run();
  }
}

void DropFaces(rules::Rewriting& text, const RtfToHtmlState& state) {
  const FontNames names(state);
  for (const Text& face : names.faces()) {
    const Text tag = Joined({u"<font face=\"", face, u"\""});
    text.Replace(tag + u">", u"", Compare::IgnoreCase);
    text.Replace(tag + u" >", u"", Compare::IgnoreCase);
  }
}

}  // namespace quillary::html_finishing

// The conversion of font tags to spans.
#include <algorithm>
#include <optional>

#include "html_finishing/font_shapes.h"
#include "html_finishing/font_turns.h"
#include "html_finishing/strike_swaps.h"
#include "rules/rewriting.h"

namespace quillary::html_finishing {
namespace {

constexpr TextView kStrike = u"<strike>";
constexpr TextView kFont = u"<font ";
constexpr TextView kBlack = u"#000000";

Text Span(TextView face, TextView colour, TextView size) {
  return Joined({u"<span style=\"font-family:", face, u"; color:", colour, u"; font-size:", size, u"pt\">"});
}
Text Span(TextView face, TextView size) {
  return Joined({u"<span style=\"font-family:", face, u"; font-size:", size, u"pt\">"});
}
// Without a size the quotation mark after the style is left out.
Text OpenSpan(TextView face, TextView colour) {
  return Joined({u"<span style=\"font-family:", face, u"; color:", colour, u">"});
}

// A page whose tags can be read: one way through it, each tag by itself, and
// strikes together with what stands after them.
class SpanWriter {
 public:
  SpanWriter(TextView page, const FontNames& names) : page_(page), names_(names), swaps_(names) {}

  Text Write() {
    out_.reserve(page_.size());
    std::size_t at = 0;
    while (at < page_.size()) {
      const std::size_t next = std::min(page_.find(u'<', at), page_.size());
      out_ += page_.substr(at, next - at);
      at = next;
      if (page_.substr(at).starts_with(kStrike)) {
        at = TakeStrikes(at);
      } else if (page_.substr(at).starts_with(kFont)) {
        at = TakeFont(at);
      } else if (at < page_.size()) {
        out_ += page_[at++];
      }
    }
    return std::move(out_);
  }

 private:
  bool Knows(const FontTag& tag) const {
    const bool face = names_.FaceIndex(tag.face) >= 0;
    const bool size = SizeNumber(tag.size) >= 0;
    const bool own_colour = names_.ColourIndex(tag.colour) >= 0;
    switch (tag.shape) {
      case FontShape::SizeFaceColour:
      case FontShape::FaceSizeColour:
        return size && face && (own_colour || tag.colour == kBlack);
      case FontShape::FaceSize:
      case FontShape::SizeFace:
        return size && face && tag.space_before_end;
      case FontShape::FaceColour:
        return face && (own_colour || tag.colour == kBlack);
      default:
        return false;
    }
  }

  static Text SpanOf(const FontTag& tag) {
    if (tag.size.empty()) return OpenSpan(tag.face, tag.colour);
    if (tag.shape == FontShape::FaceSize || tag.shape == FontShape::SizeFace) return Span(tag.face, tag.size);
    return Span(tag.face, tag.colour, tag.size);
  }

  std::size_t TakeFont(std::size_t at) {
    const std::optional<FontTag> tag = ReadFontTag(page_, at);
    if (!tag || !Knows(*tag)) {
      out_ += page_[at];
      return at + 1;
    }
    out_ += SpanOf(*tag);
    return at + tag->source.size();
  }

  // Strikes and the tags after them that may change places with one.
  std::size_t TakeStrikes(std::size_t at) {
    while (true) {
      if (page_.substr(at).starts_with(kStrike)) {
        swaps_.AddStrike();
        at += kStrike.size();
        continue;
      }
      if (!page_.substr(at).starts_with(kFont)) break;
      const std::optional<FontTag> tag = ReadFontTag(page_, at);
      if (tag && tag->shape == FontShape::SizeFace && Knows(*tag)) {
        swaps_.AddFont(SizeNumber(tag->size), names_.FaceIndex(tag->face), SpanOf(*tag));
      } else if (tag && tag->shape == FontShape::Colour && names_.ColourIndex(tag->colour) >= 0) {
        swaps_.AddColour(*tag);
      } else {
        break;
      }
      at += tag->source.size();
    }
    swaps_.Finish(out_);
    return at;
  }

  TextView page_;
  const FontNames& names_;
  StrikeSwaps swaps_;
  Text out_;
};

class SpanTurns : public FontTurns {
 public:
  SpanTurns(rules::Rewriting& page, const FontNames& names)
      : FontTurns(page, names, u"<strike><font COLOR=\"") {}

 private:
  void RunFaceRows(const Text& size, const Text* own_colour, const Text& face) override {
    const Text size_face = Joined({u"<font SIZE=\"", size, u"\" FACE=\"", face, u"\""});
    const Text face_size = Joined({u"<font FACE=\"", face, u"\" SIZE=\"", size, u"\""});
    for (const Text& tag : {size_face, face_size}) {
      if (own_colour != nullptr) {
        ReplaceBoth(Joined({tag, u" COLOR=\"", *own_colour, u"\""}), Span(face, *own_colour, size));
      }
      ReplaceBoth(Joined({tag, u" COLOR=\"", kBlack, u"\""}), Span(face, kBlack, size));
    }
    Replace(face_size + u" >", Span(face, size));
    Replace(Joined({kStrike, size_face, u" >"}), Joined({Span(face, size), kStrike}));
    Replace(size_face + u" >", Span(face, size));
  }

  void RunColourRows(const Text& own_colour) override {
    for (const TextView end : {TextView(u" >"), TextView(u">")}) {
      const Text tag = Joined({u"<font COLOR=\"", own_colour, u"\"", end});
      Replace(Joined({kStrike, tag}), Joined({tag, kStrike}));
    }
  }

  void RunBlackRows(const Text* own_colour, const Text& face) override {
    const Text tag = Joined({u"<font FACE=\"", face, u"\" COLOR=\""});
    if (own_colour != nullptr) ReplaceBoth(Joined({tag, *own_colour, u"\""}), OpenSpan(face, *own_colour));
    ReplaceBoth(Joined({tag, kBlack, u"\""}), OpenSpan(face, kBlack));
  }
};

}  // namespace

void SpanFullShapes(rules::Rewriting& text, const RtfToHtmlState& state) {
  const FontNames names(state);
  if (names.plain()) {
    if (text.Holds(kFont, Compare::Binary)) text.Assign(SpanWriter(text.text(), names).Write());
  } else {
    SpanTurns(text, names).Run();
  }
}

void SpanFaces(rules::Rewriting& text, const RtfToHtmlState& state) {
  const FontNames names(state);
  for (const Text& face : names.faces()) {
    const Text tag = Joined({u"<font face=\"", face, u"\""});
    const Text span = Joined({u"<span style=\"font-family:", face, u"\">"});
    text.Replace(tag + u">", span, Compare::IgnoreCase);
    text.Replace(tag + u" >", span, Compare::IgnoreCase);
  }
}

}  // namespace quillary::html_finishing

// Brings the font tag of a run in front of the tags that open with it, for each
// font of the document and each size, in that order. What is looked for is in
// the page or it is not: the cost follows the font tags of the page, not the
// fonts times the sizes.
#include <algorithm>
#include <array>
#include <string>
#include <unordered_map>
#include <vector>

#include "apartment/rtf_to_html_state.h"
#include "html_finishing/faces_in_turn.h"
#include "html_finishing/font_shapes.h"
#include "html_finishing/page_pieces.h"
#include "rules/rewriting.h"
#include "text/search.h"

namespace quillary::html_finishing {
namespace {

using Id = PagePieces::Id;

constexpr TextView kBody = u"<BODY BGCOLOR=\"#FFFFFF\">";
constexpr TextView kFaceStart = u"<font FACE=\"";
constexpr TextView kSizeStart = u"\" SIZE=\"";
constexpr TextView kTagEnd = u"\" >";
constexpr TextView kBlack = u"<font COLOR=\"#000000\">";
constexpr TextView kBullet = u"&bull;";

Text SizedFontTag(TextView face, int size) {
  return Text(kFaceStart).append(face).append(kSizeStart).append(Decimal(size)).append(kTagEnd);
}

// ---- a face with an angle bracket in its name: row by row over the text ----

void MoveByLiteral(rules::Rewriting& text, TextView face) {
  if (!text.Holds(Text(kFaceStart).append(face).append(u"\""), Compare::Binary)) return;
  const auto replace = [&text](const Text& find, const Text& with) {
    text.Replace(find, with, Compare::Binary);
  };
  const Text body = Text(kBody).append(kFaceStart).append(face).append(u"\" ><ul>");
  for (int size = 1; size <= kLastSize; ++size) {
    const Text font = SizedFontTag(face, size);
    replace(u"<strike>" + font, font + u"<strike>");
    replace(u"<u><b>" + font, font + u"<b><u>");
    replace(u"<b>" + font, font + u"<b>");
    replace(u"<u>" + font, font + u"<u>");
    replace(u"<b><i>" + font, font + u"<b><i>");
    replace(Text(kBullet).append(font).append(kBlack), Text(font).append(kBlack).append(kBullet));
    replace(u"<li><br> </font></li></li></ul>" + font + u"<li><ul>",
            u"<li><br> </font></li><li></li>" + font + u"<li>");
    replace(body + u"<font", body + u"<li><font");
    replace(u"</li></ul>" + font + u"<li> <ul>", u"</li>" + font + u"<li>");
  }
}

// ---- all other faces: font tag by font tag ----

// Where a face stands in the page.
struct FaceUse {
  std::array<std::vector<Id>, kLastSize + 1> fonts;  // by size, in the order of the page
  std::vector<Id> bodies;                            // body tags in front of the face without a size
  std::uint64_t unmoved_since = 0;                   // the change before which a whole turn found nothing
};

class FontMoves {
 public:
  explicit FontMoves(TextView page) : pieces_(page) {
    for (Id piece = pieces_.Next(0); piece != 0; piece = pieces_.Next(piece)) Record(piece);
  }

  void Turn(TextView face) {
    const auto found = uses_.find(face);
    if (found == uses_.end() || found->second.unmoved_since == changes_) return;
    FaceUse& use = found->second;
    const std::uint64_t before = changes_;
    for (std::size_t size = 1; size <= kLastSize; ++size) {
      const std::vector<Id>& fonts = use.fonts[size];
      if (!fonts.empty()) MoveFonts(fonts);
      for (const Id body : use.bodies) OpenItem(body, face);
      if (!fonts.empty()) JoinLists(fonts);
    }
    if (changes_ == before) use.unmoved_since = changes_;
  }

  bool changed() const { return changes_ != 1; }
  Text Join() const { return pieces_.Join(); }

 private:
  void Record(Id piece) {
    const TextView tag = pieces_[piece];
    if (!tag.starts_with(kFaceStart) || !tag.ends_with(kTagEnd)) return;
    if (pieces_[pieces_.Prev(piece)] == kBody && tag.size() >= kFaceStart.size() + kTagEnd.size()) {
      const TextView face = tag.substr(kFaceStart.size(), tag.size() - kFaceStart.size() - kTagEnd.size());
      uses_[face].bodies.push_back(pieces_.Prev(piece));
    }
    const std::size_t split = tag.rfind(kSizeStart);
    if (split == TextView::npos || split < kFaceStart.size()) return;
    const TextView face = tag.substr(kFaceStart.size(), split - kFaceStart.size());
    const TextView number = tag.substr(split + kSizeStart.size());
    const int size = SizeNumber(number.substr(0, number.size() - kTagEnd.size()));
    if (size > 0) uses_[face].fonts[static_cast<std::size_t>(size)].push_back(piece);
  }

  // A row is tried on the fonts from the last to the first: a font that was
  // moved then never makes another one fit in the same row.
  template <class Row>
  void ForAll(const std::vector<Id>& fonts, Row&& row) {
    for (auto font = fonts.rbegin(); font != fonts.rend(); ++font) {
      if (row(*font)) ++changes_;
    }
  }

  bool Preceded(Id piece, TextView tag) const { return pieces_[pieces_.Prev(piece)] == tag; }
  bool Preceded(Id piece, TextView outer, TextView inner) const {
    return Preceded(piece, inner) && pieces_[pieces_.Prev(piece, 2)] == outer;
  }
  bool MoveOut(Id font, int steps) {
    pieces_.MoveBefore(font, pieces_.Prev(font, steps));
    return true;
  }

  void MoveFonts(const std::vector<Id>& fonts) {
    ForAll(fonts, [this](Id font) { return Preceded(font, u"<strike>") && MoveOut(font, 1); });
    ForAll(fonts, [this](Id font) {
      if (!Preceded(font, u"<u>", u"<b>")) return false;
      const Id bold = pieces_.Prev(font);
      MoveOut(font, 2);
      return MoveOut(bold, 1);
    });
    ForAll(fonts, [this](Id font) { return Preceded(font, u"<b>") && MoveOut(font, 1); });
    ForAll(fonts, [this](Id font) { return Preceded(font, u"<u>") && MoveOut(font, 1); });
    ForAll(fonts, [this](Id font) { return Preceded(font, u"<b>", u"<i>") && MoveOut(font, 2); });
    ForAll(fonts, [this](Id font) { return MoveBullet(font); });
    ForAll(fonts, [this](Id font) { return MendList(font); });
  }

  bool MoveBullet(Id font) {
    const Id front = pieces_.Prev(font);
    const TextView text = pieces_[front];
    const Id colour = pieces_.Next(font);
    if (!text.ends_with(kBullet) || pieces_[colour] != kBlack) return false;
    if (text.size() == kBullet.size()) {
      pieces_.Remove(front);
    } else {
      pieces_.Set(front, text.substr(0, text.size() - kBullet.size()));
    }
    pieces_.InsertAfter(colour, kBullet);
    return true;
  }

  bool MendList(Id font) {
    static constexpr TextView kBefore[] = {u"</ul>", u"</li>", u"</li>", u"</font>", u" ", u"<br>", u"<li>"};
    Id piece = font;
    for (const TextView tag : kBefore) {
      piece = pieces_.Prev(piece);
      if (pieces_[piece] != tag) return false;
    }
    const Id list = pieces_.Next(font, 2);
    if (!Followed(font, u"<li>") || pieces_[list] != u"<ul>") return false;
    pieces_.Set(pieces_.Prev(font, 2), u"<li>");
    pieces_.Set(pieces_.Prev(font), u"</li>");
    pieces_.Remove(list);
    return true;
  }

  bool Followed(Id piece, TextView tag) const { return pieces_[pieces_.Next(piece)] == tag; }

  void OpenItem(Id body, TextView face) {
    const Id list = pieces_.Next(body, 2);
    if (pieces_[list] != u"<ul>" || !pieces_[pieces_.Next(list)].starts_with(u"<font")) return;
    const TextView font = pieces_[pieces_.Next(body)];
    if (font != Text(kFaceStart).append(face).append(kTagEnd)) return;
    pieces_.InsertAfter(list, u"<li>");
    ++changes_;
  }

  void JoinLists(const std::vector<Id>& fonts) {
    ForAll(fonts, [this](Id font) {
      const Id space = pieces_.Next(font, 2);
      if (!Preceded(font, u"</li>", u"</ul>") || !Followed(font, u"<li>")) return false;
      if (pieces_[space] != u" " || !Followed(space, u"<ul>")) return false;
      pieces_.Remove(pieces_.Prev(font));
      pieces_.Remove(pieces_.Next(space));
      pieces_.Remove(space);
      return true;
    });
  }

  PagePieces pieces_;
  std::unordered_map<TextView, FaceUse> uses_;
  std::uint64_t changes_ = 1;
};

// Whether any font tag stands after something that it could be moved in front
// of, or that is mended along with it.
bool MayMove(TextView page) {
  static constexpr TextView kInFront[] = {u"<b>", u"<u>", u"<i>", u"<strike>", u"</ul>", kBullet, kBody};
  const Finder starts(kFaceStart, Compare::Binary);
  for (std::size_t at = starts.Next(page, 0); at != Finder::npos; at = starts.Next(page, at + 1)) {
    const TextView before = page.substr(0, at);
    if (!std::ranges::any_of(kInFront, [&](TextView tag) { return before.ends_with(tag); })) continue;
    const std::size_t end = page.find_first_of(u"<>", at + 1);
    if (end != TextView::npos && page.substr(0, end + 1).ends_with(kTagEnd)) return true;
  }
  return false;
}

}  // namespace

void MoveFontsOutward(rules::Rewriting& text, const RtfToHtmlState& state) {
  if (!text.Holds(kFaceStart, Compare::Binary)) return;
  const std::vector<Text> faces = FacesInTurn(state);
  for (auto face = faces.begin(); face != faces.end();) {
    if (HasBrackets(*face)) {
      MoveByLiteral(text, *face);
      ++face;
      continue;
    }
    if (!MayMove(text.text())) {
      while (face != faces.end() && !HasBrackets(*face)) ++face;
      continue;
    }
    FontMoves moves(text.text());
    for (; face != faces.end() && !HasBrackets(*face); ++face) moves.Turn(*face);
    if (moves.changed()) text.Assign(moves.Join());
  }
}

}  // namespace quillary::html_finishing

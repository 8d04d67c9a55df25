// Puts the anchor of each found link around its colour, and cuts a link that
// was written twice, for each link, colour and face of the document, in that
// order. The cost follows the anchors and colours of the page, not the product
// of the three lists.
#include <algorithm>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "apartment/rtf_to_html_state.h"
#include "html_finishing/faces_in_turn.h"
#include "html_finishing/page_pieces.h"
#include "rules/rewriting.h"
#include "text/case_folding.h"
#include "text/search.h"

namespace quillary::html_finishing {
namespace {

using Id = PagePieces::Id;

constexpr Compare kMode = Compare::IgnoreCase;
constexpr int kLargestSize = 5;

struct Turns {
  std::vector<Text> targets;  // of the links, whole
  std::vector<Text> colours;
  std::vector<Text> faces;
};

Text AnchorTag(TextView target) { return Text(u"<a href=\"").append(target).append(u"\">"); }
Text ColourTag(TextView colour) { return Text(u"<font COLOR=\"").append(colour).append(u"\">"); }
Text FaceTag(TextView face) { return Text(u"<font FACE=\"").append(face).append(u"\">"); }
Text SizeTag(int size) { return Text(u"<font SIZE=\"").append(Decimal(size)).append(u"\">"); }

// ---- names with an angle bracket in them: over the text, one after the other ----

// From each `head` through the next anchor end: where that begins `kept` and
// `cut`, the head, the label and `kept` stay, `cut` goes.
void CutByLiteral(rules::Rewriting& text, const Text& head, const Text& kept, const Text& cut) {
  if (!text.Holds(kept + cut, kMode)) return;
  const Text& page = text.text();
  Text result;
  std::size_t written = 0;
  std::size_t end = 0;
  const Finder heads(head, kMode);
  const Finder anchor_ends(u"</a>", kMode);
  for (std::size_t at = heads.Next(page, 0); at != Finder::npos;) {
    if (end < at + head.size()) end = anchor_ends.Next(page, at + head.size());
    if (end == Finder::npos) break;
    const TextView there = TextView(page).substr(end);
    if (Equal(there.substr(0, kept.size() + cut.size()), kept + cut, kMode)) {
      result.append(page, written, at - written).append(head);
      result.append(page, at + head.size(), end - at - head.size()).append(kept);
      written = end + kept.size() + cut.size();
      at = heads.Next(page, written);
    } else {
      at = heads.Next(page, at + 1);
    }
  }
  if (written == 0) return;
  text.Assign(std::move(result.append(page, written)));
}

void ResolveByLiteral(rules::Rewriting& text, const Turns& turns, const Text& target, const Text& colour) {
  const Text anchor = AnchorTag(target);
  const Text font = ColourTag(colour);
  const Text kept = u"</a></u>" + font;
  const Text again = anchor + target + u"</a>";
  for (const Text& face : turns.faces) {
    const bool swapped = text.Replace(font + anchor, anchor + font, kMode);
    const bool doubled =
        text.Holds(kept + u"<b><font SIZE=\"", kMode) || text.Holds(kept + u"<font FACE=\"", kMode);
    if (!swapped && !doubled) return;  // nor will another face find anything
    for (int size = kLargestSize; doubled && size >= 1; --size) {
      CutByLiteral(text, u"<u>" + anchor, kept, u"<b>" + SizeTag(size) + again);
      CutByLiteral(text, u"<u>" + anchor, kept, FaceTag(face) + SizeTag(size) + again);
    }
  }
}

void ResolveAllByLiteral(rules::Rewriting& text, const Turns& turns) {
  for (const Text& target : turns.targets) {
    if (!text.Holds(AnchorTag(target), kMode)) continue;
    for (const Text& colour : turns.colours) {
      if (text.Holds(ColourTag(colour), kMode)) ResolveByLiteral(text, turns, target, colour);
    }
  }
}

// ---- all other names: anchor by anchor ----

Text FoldCase(TextView text) {
  Text folded(text);
  for (char16_t& unit : folded) unit = FoldUnit(unit);
  return folded;
}

class LinkColours {
 public:
  explicit LinkColours(TextView page) : pieces_(page) {
    for (Id piece = pieces_.Next(0); piece != 0; piece = pieces_.Next(piece)) {
      const TextView tag = pieces_[piece];
      if (tag.size() < 2 || tag.front() != u'<') continue;
      const char16_t letter = FoldUnit(tag[1]);
      if (letter == u'a') anchors_[FoldCase(tag)].push_back(piece);
      if (letter == u'f') fonts_.insert(FoldCase(tag));
    }
  }

  void Resolve(const Turns& turns) {
    for (const Text& target : turns.targets) {
      const auto anchors = anchors_.find(FoldCase(AnchorTag(target)));
      if (anchors == anchors_.end()) continue;
      anchor_ = AnchorTag(target);
      target_ = target;
      for (const Text& colour : turns.colours) {
        if (fonts_.count(FoldCase(ColourTag(colour))) != 0) {
          ResolveOne(anchors->second, ColourTag(colour), turns.faces);
        }
      }
    }
  }

  bool changed() const { return changed_; }
  Text Join() const { return pieces_.Join(); }

 private:
  bool Is(Id piece, TextView text) const { return Equal(pieces_[piece], text, kMode); }

  void ResolveOne(std::vector<Id>& anchors, const Text& colour, const std::vector<Text>& faces) {
    for (const Text& face : faces) {
      const bool swapped = Swap(anchors, colour);
      const bool doubled = std::any_of(anchors.begin(), anchors.end(),
                                       [&](Id anchor) { return RepeatedBy(anchor, colour) != 0; });
      changed_ = changed_ || swapped;
      if (!swapped && !doubled) return;  // nor will another face find anything
      if (doubled) CutAll(anchors, colour, face);
    }
  }

  // A change writes the tags as the turn spells them.
  void Write(Id piece, const Text& text) { pieces_.Set(piece, *written_.insert(text).first); }

  // From the last to the first, so that no change makes another one fit in the same turn.
  bool Swap(const std::vector<Id>& anchors, const Text& colour) {
    bool swapped = false;
    for (auto anchor = anchors.rbegin(); anchor != anchors.rend(); ++anchor) {
      const Id font = pieces_.Prev(*anchor);
      if (!Is(font, colour)) continue;
      pieces_.MoveBefore(*anchor, font);
      Write(*anchor, anchor_);
      Write(font, colour);
      swapped = true;
    }
    return swapped;
  }

  // The anchor of which this one is the repetition, whatever the two tags in
  // front of this one are: the first in front of the same anchor end. 0: none.
  Id RepeatedBy(Id anchor, const Text& colour) const {
    const Id end = pieces_.Prev(anchor, 5);
    if (!Is(pieces_.Prev(anchor, 3), colour) || !Is(pieces_.Prev(anchor, 4), u"</u>") || !Is(end, u"</a>") ||
        !Is(pieces_.Next(anchor), target_) || !Is(pieces_.Next(anchor, 2), u"</a>")) {
      return 0;
    }
    Id first = 0;
    for (Id piece = pieces_.Prev(end); piece != 0 && !Is(piece, u"</a>"); piece = pieces_.Prev(piece)) {
      if (Is(piece, anchor_) && Is(pieces_.Prev(piece), u"<u>")) first = piece;
    }
    return first;
  }

  void CutAll(std::vector<Id>& anchors, const Text& colour, const Text& face) {
    const bool face_there = fonts_.count(FoldCase(FaceTag(face))) != 0;
    for (int size = kLargestSize; size >= 1; --size) {
      if (fonts_.count(FoldCase(SizeTag(size))) == 0) continue;
      Cut(anchors, colour, u"<b>", SizeTag(size));
      if (face_there) Cut(anchors, colour, FaceTag(face), SizeTag(size));
    }
  }

  void Cut(std::vector<Id>& anchors, const Text& colour, const Text& opener, const Text& size) {
    for (std::size_t i = anchors.size(); i-- > 0;) {
      const Id anchor = anchors[i];
      if (!Is(pieces_.Prev(anchor), size) || !Is(pieces_.Prev(anchor, 2), opener)) continue;
      const Id repeated = RepeatedBy(anchor, colour);
      if (repeated == 0) continue;
      Write(pieces_.Prev(repeated), u"<u>");
      Write(repeated, anchor_);
      Write(pieces_.Prev(anchor, 5), u"</a>");
      Write(pieces_.Prev(anchor, 4), u"</u>");
      Write(pieces_.Prev(anchor, 3), colour);
      const Id after = pieces_.Next(anchor, 3);
      for (Id piece = pieces_.Prev(anchor, 2); piece != after; piece = pieces_.Next(piece)) {
        pieces_.Remove(piece);
      }
      anchors.erase(anchors.begin() + static_cast<std::ptrdiff_t>(i));
      changed_ = true;
    }
  }

  PagePieces pieces_;
  std::unordered_map<Text, std::vector<Id>> anchors_;  // by folded tag, in the order of the page
  std::unordered_set<Text> fonts_;                     // folded
  Text anchor_;                                        // of the turn
  Text target_;
  std::unordered_set<Text> written_;
  bool changed_ = false;
};

// What was never set reads as empty.
Text Entry(const TextList& list, std::int32_t index) { return list.has(index) ? list[index] : Text(); }

Turns TurnsOf(const RtfToHtmlState& state, TextView page) {
  Turns turns;
  turns.faces = FacesInTurn(state);
  for (std::int32_t i = 1; state.ColourTable.sized() && i <= state.ColourCount; ++i) {
    turns.colours.push_back(Entry(state.ColourTable, i));
  }
  const std::int32_t links = turns.colours.empty() ? 0 : CountOccurrences(page, u"<a href=", kMode);
  for (std::int32_t i = 1; i <= links; ++i) {
    turns.targets.push_back(Trim(u"http://" + Entry(state.FoundLinks, i)));
  }
  return turns;
}

}  // namespace

void SettleLinkColours(rules::Rewriting& text, const RtfToHtmlState& state) {
  const Turns turns = TurnsOf(state, text.text());
  const auto any = [](const std::vector<Text>& names) {
    return std::any_of(names.begin(), names.end(), [](const Text& name) { return HasBrackets(name); });
  };
  if (turns.targets.empty()) return;
  if (any(turns.targets) || any(turns.colours) || any(turns.faces)) {
    ResolveAllByLiteral(text, turns);
    return;
  }
  LinkColours links(text.text());
  links.Resolve(turns);
  if (links.changed()) text.Assign(links.Join());
}

}  // namespace quillary::html_finishing

#include "html_finishing/strike_swaps.h"

#include <algorithm>
#include <limits>
#include <set>

namespace quillary::html_finishing {
namespace {

constexpr int kNoFace = std::numeric_limits<int>::max();

}  // namespace

void StrikeSwaps::AddStrike() { pieces_.push_back({Kind::Strike, 0, 0, false, u"<strike>"}); }

void StrikeSwaps::AddColour(const FontTag& tag) {
  pieces_.push_back(
      {Kind::Colour, 0, names_.ColourIndex(tag.colour), tag.space_before_end, Text(tag.source)});
}

void StrikeSwaps::AddFont(int size, int face, Text span) {
  pieces_.push_back({Kind::Font, size, face, true, std::move(span)});
}

void StrikeSwaps::Finish(Text& out) {
  RunTurns();
  for (const Piece& piece : pieces_) out += piece.text;
  pieces_.clear();
}

void StrikeSwaps::RunTurns() {
  std::set<int> in_use;
  for (const Piece& piece : pieces_) {
    if (piece.kind == Kind::Colour) in_use.insert(piece.name);
  }
  std::vector<std::size_t> turns{0};  // fonts move in the turns of the first colour
  const std::vector<Text>& colours = names_.colours();
  for (std::size_t entry = 1; !in_use.empty() && entry < colours.size(); ++entry) {
    if (in_use.contains(names_.ColourIndex(colours[entry]))) turns.push_back(entry);
  }
  for (int size = 0; size <= kLastSize; ++size) {
    for (const std::size_t colour : turns) {
      const bool fonts_move = colour == 0 && NextFace(size, -1) != kNoFace;
      if (fonts_move || CanSwapColours()) RunTurnsOf(size, colour);
    }
  }
}

void StrikeSwaps::RunTurnsOf(int size, std::size_t colour) {
  const std::vector<Text>& colours = names_.colours();
  const int entry = colour < colours.size() ? names_.ColourIndex(colours[colour]) : -1;
  const int faces = static_cast<int>(names_.faces().size());
  int face = 0;
  while (face < faces) {
    if (colour == 0) SwapFonts(size, face);
    bool moved = false;
    for (const bool space_before_end : {true, false}) {
      moved |= Swap([&](const Piece& piece) {
        return piece.kind == Kind::Colour && piece.name == entry &&
               piece.space_before_end == space_before_end;
      });
    }
    // Where nothing moved, nothing will before another font becomes a span.
    face = moved ? face + 1 : colour == 0 ? NextFace(size, face) : kNoFace;
  }
}

// One pass: each wanted piece changes places with the strike in front of it. A
// strike that has just been put there counts only in the next pass.
template <class Wanted>
bool StrikeSwaps::Swap(Wanted wanted) {
  bool moved = false;
  for (std::size_t i = 1; i < pieces_.size(); ++i) {
    if (pieces_[i - 1].kind != Kind::Strike || !wanted(pieces_[i])) continue;
    std::swap(pieces_[i - 1], pieces_[i]);
    moved = true;
    ++i;
  }
  return moved;
}

bool StrikeSwaps::SwapFonts(int size, int face) {
  const auto wanted = [&](const Piece& piece) {
    return piece.kind == Kind::Font && piece.size == size && piece.name == face;
  };
  const bool moved = Swap(wanted);
  for (Piece& piece : pieces_) {
    if (wanted(piece)) piece.kind = Kind::Span;
  }
  return moved;
}

// The first face after `after` that a tag of this size still has.
int StrikeSwaps::NextFace(int size, int after) const {
  int next = kNoFace;
  for (const Piece& piece : pieces_) {
    if (piece.kind == Kind::Font && piece.size == size && piece.name > after)
      next = std::min(next, piece.name);
  }
  return next;
}

bool StrikeSwaps::CanSwapColours() const {
  for (std::size_t i = 1; i < pieces_.size(); ++i) {
    if (pieces_[i - 1].kind == Kind::Strike && pieces_[i].kind == Kind::Colour) return true;
  }
  return false;
}

}  // namespace quillary::html_finishing

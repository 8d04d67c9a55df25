// Strikes that stand directly in front of font tags.
#pragma once

#include "html_finishing/font_shapes.h"

namespace quillary::html_finishing {

/// Rewrites tags that stand side by side, beginning with a strike, as the
/// conversion to spans does turn by turn: for every size, colour and font, in
/// this order, a tag with that size and face becomes a span and moves in front
/// of the strike before it, and every tag with that colour alone moves in
/// front of the strike before it, one strike a turn.
class StrikeSwaps {
 public:
  explicit StrikeSwaps(const FontNames& names) : names_(names) {}

  void AddStrike();
  /// Only a tag with a colour of the document is of use here.
  void AddColour(const FontTag& tag);
  /// A size and a face, with the span that the tag becomes.
  void AddFont(int size, int face, Text span);

  /// Appends what has become of the tags, and forgets them.
  void Finish(Text& out);

 private:
  enum class Kind { Strike, Colour, Font, Span };
  struct Piece {
    Kind kind;
    int size = 0;  // of a font
    int name = 0;  // the face of a font, or the first entry of a colour
    bool space_before_end = false;
    Text text;
  };

  void RunTurns();
  void RunTurnsOf(int size, std::size_t colour);
  template <class Wanted>
  bool Swap(Wanted wanted);
  bool SwapFonts(int size, int face);
  int NextFace(int size, int after) const;
  bool CanSwapColours() const;

  const FontNames& names_;
  std::vector<Piece> pieces_;
};

}  // namespace quillary::html_finishing

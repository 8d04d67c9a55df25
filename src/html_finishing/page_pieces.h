// A page cut at its angle brackets, for stages that move whole tags about.
#pragma once

#include <cstdint>
#include <vector>

#include "text/text.h"

namespace quillary::html_finishing {

/// A piece begins at every "<" and ends at every ">", so that a literal that
/// begins with "<", ends with ">" and has no bracket between is always one
/// piece. The page that was cut, and all texts put into it, must outlive this.
class PagePieces {
 public:
  using Id = std::uint32_t;

  explicit PagePieces(TextView page);

  /// Piece 0 is empty and stands in front of the first and after the last one.
  TextView operator[](Id piece) const { return pieces_[piece].text; }
  Id Next(Id piece, int steps = 1) const;
  Id Prev(Id piece, int steps = 1) const;

  void Set(Id piece, TextView text) { pieces_[piece].text = text; }
  void Remove(Id piece);
  Id InsertAfter(Id place, TextView text);
  void MoveBefore(Id piece, Id place);

  Text Join() const;

 private:
  struct Piece {
    TextView text;
    Id prev = 0;
    Id next = 0;
  };
  void Link(Id piece, Id prev);

  std::vector<Piece> pieces_;
};

/// Whether a text has an angle bracket, so that it may lie across several pieces.
bool HasBrackets(TextView text);

}  // namespace quillary::html_finishing

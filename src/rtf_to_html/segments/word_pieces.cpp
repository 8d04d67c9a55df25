#include "rtf_to_html/segments/word_pieces.h"

#include <algorithm>

#include "text/case_folding.h"

namespace quillary::modQuillary {

WordPieces::WordPieces(TextView text, TextView start)
    : finder_(start, Compare::IgnoreCase), first_(start[0]), second_(FoldUnit(start[1])) {
  Length(text);
  std::size_t words = 0;
  for (std::size_t at = finder_.Next(text, 0); at != Finder::npos; at = finder_.Next(text, at + 1)) ++words;
  pieces_.reserve(2 * words + 8);  // room to replace each
  pieces_.resize(1);
  InsertCut(0, text, 0);
  std::uint32_t order = 0;
  for (Id piece = pieces_[0].next; piece != 0; piece = pieces_[piece].next) {
    pieces_[piece].order = order & 0x7FFFFFFF;
    order += pieces_[piece].size;
  }
  here_ = pieces_[0].next;
}

std::vector<WordPieces::Id> WordPieces::Words() const {
  std::vector<Id> words;
  for (Id piece = pieces_[0].next; piece != 0; piece = pieces_[piece].next) {
    if (pieces_[piece].word) words.push_back(piece);
  }
  return words;
}

TextView WordPieces::Look(Id word, std::size_t units) {
  units = std::min(units, kSight);
  if (pieces_[word].size >= units) return {pieces_[word].units, units};
  std::size_t seen = 0;
  for (Id piece = word; piece != 0 && seen < units; piece = pieces_[piece].next) {
    const std::size_t more = std::min<std::size_t>(pieces_[piece].size, units - seen);
    std::copy_n(pieces_[piece].units, more, seen_ + seen);
    seen += more;
  }
  return {seen_, seen};
}

WordPieces::Id WordPieces::Insert(Id after, TextView units, std::uint32_t order, bool word) {
  const auto piece = static_cast<Id>(pieces_.size());
  const Id next = pieces_[after].next;
  pieces_.push_back({units.data(), static_cast<std::uint32_t>(units.size()), after, next, order & 0x7FFFFFFF,
                     word ? 1U : 0U});
  pieces_[after].next = piece;
  pieces_[next].prev = piece;
  size_ += units.size();
  return piece;
}

void WordPieces::InsertCut(Id after, TextView text, std::uint32_t order) {
  std::size_t at = finder_.Next(text, 0);
  if (at == Finder::npos) at = text.size();
  if (at > 0) after = Insert(after, text.substr(0, at), order, false);
  while (at < text.size()) {
    const std::size_t next = std::min(finder_.Next(text, at + 1), text.size());
    after = Insert(after, text.substr(at, next - at), order, true);
    at = next;
  }
}

// Texts put in place of a word share its order.
bool WordPieces::StandsBefore(Id piece, Id other) const {
  if (other == 0) return true;
  const std::uint32_t order = pieces_[other].order;
  if (pieces_[piece].order != order) return pieces_[piece].order < order;
  for (piece = pieces_[piece].next; piece != 0 && pieces_[piece].order == order;
       piece = pieces_[piece].next) {
    if (piece == other) return true;
  }
  return false;
}

// The last unit of one piece and the first of the next may begin a word by now.
void WordPieces::JoinSeam(Id right) {
  const Id left = pieces_[right].prev;
  if (left == 0 || right == 0 || FoldUnit(pieces_[right].units[0]) != second_) return;
  Piece& piece = pieces_[left];
  if (piece.units[piece.size - 1] != first_) return;
  if (piece.size == 1) {
    piece.word = 1;
    return;
  }
  --piece.size;
  --size_;
  Insert(left, {piece.units + piece.size, 1}, piece.order, true);
}

// Takes the first units of a word away. Returns the piece after them.
WordPieces::Id WordPieces::Cut(Id word, std::size_t units) {
  size_ -= units;
  while (units > 0) {
    Piece& piece = pieces_[word];
    const auto taken = static_cast<std::uint32_t>(std::min<std::size_t>(piece.size, units));
    units -= taken;
    piece.units += taken;
    piece.size -= taken;
    piece.word = 0;
    if (piece.size > 0) break;
    pieces_[piece.prev].next = piece.next;
    pieces_[piece.next].prev = piece.prev;
    word = piece.next;
  }
  return word;
}

void WordPieces::Replace(Id word, std::size_t units, TextView with, const std::function<void(Id)>& touched) {
  const std::uint32_t order = pieces_[word].order;
  const Id before = pieces_[word].prev;
  // Whether what stood where the last search ended goes away, and how far in.
  std::size_t ahead = 0;
  bool goes = false;
  for (Id piece = word; piece != 0 && ahead < units; piece = pieces_[piece].next) {
    goes = piece == here_;
    if (goes) break;
    ahead += pieces_[piece].size;
  }
  const bool moves = !goes && StandsBefore(word, here_);
  const Id after = Cut(word, units);
  InsertCut(before, with, order);
  if (goes) {
    here_ = pieces_[before].next;
    here_at_ -= ahead;
  } else if (moves) {
    here_at_ = here_at_ + with.size() - units;
  }
  if (!with.empty()) JoinSeam(pieces_[before].next);
  JoinSeam(after);
  std::size_t seen = 0;
  for (Id piece = pieces_[after].prev; piece != 0 && seen < with.size() + kSight;) {
    seen += pieces_[piece].size;
    const Id prev = pieces_[piece].prev;
    if (pieces_[piece].word) touched(piece);
    piece = prev;
  }
}

WordPieces::Id WordPieces::WordFrom(std::size_t& place) {
  while (here_at_ > place) {
    here_ = pieces_[here_].prev;
    here_at_ -= pieces_[here_].size;
  }
  while (here_ != 0 && (!pieces_[here_].word || here_at_ < place)) {
    here_at_ += pieces_[here_].size;
    here_ = pieces_[here_].next;
  }
  place = here_at_;
  return here_;
}

Text WordPieces::Join() const {
  Text text;
  text.reserve(size_ + size_ / 4);  // other words are about to be replaced
  for (Id piece = pieces_[0].next; piece != 0; piece = pieces_[piece].next) {
    text.append(pieces_[piece].units, pieces_[piece].size);
  }
  return text;
}

}  // namespace quillary::modQuillary

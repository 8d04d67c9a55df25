// A text cut in front of every word of one kind. A word is replaced where it
// stands, whatever the length of the text, and what that changes for the words
// around it is told, so that words which make new ones cost no more than others.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "text/search.h"
#include "text/text.h"

namespace quillary::modQuillary {

class WordPieces {
 public:
  using Id = std::uint32_t;

  /// Nobody looks further after the beginning of a word.
  static constexpr std::size_t kSight = 32;

  /// A word begins with `start`, case ignored: two units, the first of which is
  /// not the second. The texts must outlive this.
  WordPieces(TextView text, TextView start);

  /// All words, in the order of the text.
  std::vector<Id> Words() const;
  std::size_t Size() const { return size_; }

  bool IsWord(Id piece) const { return pieces_[piece].word; }
  /// So many units, or as many as there are, from the beginning of a word. The
  /// view dies with the next call.
  TextView Look(Id word, std::size_t units);

  /// Puts `with` in place of the first `units` of a word, and hands over the
  /// words that may read differently for it, new ones included. `with` must
  /// outlive this.
  void Replace(Id word, std::size_t units, TextView with, const std::function<void(Id)>& touched);

  /// The first word at or after a 0-based place, which becomes that of the
  /// word, or 0. It costs the way from the last one found so.
  Id WordFrom(std::size_t& place);

  Text Join() const;

 private:
  // Piece 0 stands in front of the first and after the last.
  struct Piece {
    const char16_t* units = nullptr;
    std::uint32_t size = 0;
    Id prev = 0;
    Id next = 0;
    std::uint32_t order : 31 = 0;  // rises from piece to piece, if not always
    std::uint32_t word : 1 = 0;
  };

  Id Insert(Id after, TextView units, std::uint32_t order, bool word);
  void InsertCut(Id after, TextView text, std::uint32_t order);
  Id Cut(Id word, std::size_t units);
  void JoinSeam(Id right);
  bool StandsBefore(Id piece, Id other) const;

  std::vector<Piece> pieces_;
  Finder finder_;
  char16_t first_;
  char16_t second_;  // folded
  std::size_t size_ = 0;
  char16_t seen_[kSight] = {};
  // Where the last search for a word ended, and the offset of that piece.
  Id here_ = 0;
  std::size_t here_at_ = 0;
};

}  // namespace quillary::modQuillary

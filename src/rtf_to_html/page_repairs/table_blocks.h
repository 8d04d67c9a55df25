// Part of the module modQuillary: the walk over the tables of an assembled page.
// It repairs nothing itself, but hands each table to a routine such as that of
// modTable. The page is cut into pieces after every "</table>", so that a block
// can be replaced where it stands first without a search through the whole page.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <unordered_map>
#include <vector>

#include "apartment/apartment.h"
#include "rules/rewriting.h"
#include "text/search.h"
#include "text/text.h"

namespace quillary::modQuillary {

/// A block is the text from a "<table" to the end of the nearest "</table>",
/// both in any case.
class TableBlocks {
 public:
  explicit TableBlocks(TextView page);

  /// The first block that begins at or after the 0-based `offset` of the page
  /// as it is now. It is good until the next change.
  std::optional<TextView> Find(std::size_t offset);
  /// The offset of the "</table>" of the block found last.
  std::size_t ClosingOffset() const { return start_ + block_ + block_length_ - kClosingLength; }

  /// Puts `text` in place of the first text of the page that equals the block
  /// found last (binary).
  void ReplaceFirstEqual(TextView text);

  Text Page() const;
  std::size_t size() const { return size_; }

 private:
  static constexpr std::size_t kClosingLength = 8;
  struct Piece {
    Text text;
    bool entered = false;
    std::vector<std::uint64_t> hashes;  // of its blocks, while it is entered
  };

  void Seek(std::size_t offset);
  void SeekPiece(std::size_t piece);
  void EnterPiecesBefore(std::size_t piece);
  void Enter(std::size_t piece);
  void Leave(std::size_t piece);
  /// The first piece in front of the current one that holds `block`, if any.
  std::optional<std::size_t> PieceBefore(TextView block);
  void CloseCurrentPiece();

  Finder opening_;
  Finder closing_;
  std::size_t size_;           // of the page
  std::vector<Piece> pieces_;  // each but the last one ends with a closing tag, or is empty
  std::size_t current_ = 0;
  std::size_t start_ = 0;  // offset of the current piece in the page
  std::size_t block_ = 0;  // of the block found last, in the current piece
  std::size_t block_length_ = 0;
  std::size_t entered_ = 0;  // pieces that were entered at least once
  std::unordered_map<std::uint64_t, std::set<std::size_t>> pieces_by_hash_;
};

/// How the walk over the table blocks ended. GoBack: a block failed, and the
/// whole remainder of the sequence from DropCellMarks on is to run again.
enum class BlockWalk { Done, GoBack };

/// Gives the new text of one block; throws Failure if it cannot.
using BlockRoutine = std::function<Text(TextView block)>;

/// Rewrites the tables block by block, a block being the text from a "<table"
/// to the nearest "</table>". What came before the block that failed stays
/// rewritten. Throws LimitReached for a page above its limit.
BlockWalk BalanceTableBlocks(rules::Rewriting& page, const BlockRoutine& balance);

/// The same with the balance of cell formats.
BlockWalk BalanceTableBlocks(rules::Rewriting& page, Apartment& apartment);

}  // namespace quillary::modQuillary

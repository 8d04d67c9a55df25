#include "rtf_to_html/page_repairs/table_blocks.h"

#include <algorithm>

#include "html_finishing/cell_formats.h"

namespace quillary::modQuillary {
namespace {

constexpr TextView kOpening = u"<table";
constexpr TextView kClosing = u"</table>";

/// The hash of a text, built from its last unit to its first.
constexpr std::uint64_t Prepend(char16_t unit, std::uint64_t hash) {
  return (hash + unit + 1) * 0x9E3779B97F4A7C15u;
}

std::uint64_t HashOf(TextView text) {
  std::uint64_t hash = 0;
  for (std::size_t i = text.size(); i > 0; --i) hash = Prepend(text[i - 1], hash);
  return hash;
}

bool StartsWith(TextView text, TextView start) {
  return Equal(text.substr(0, start.size()), start, Compare::IgnoreCase);
}

}  // namespace

TableBlocks::TableBlocks(TextView page)
    : opening_(kOpening, Compare::IgnoreCase), closing_(kClosing, Compare::IgnoreCase), size_(page.size()) {
  std::size_t at = 0;
  while (true) {
    const std::size_t end = closing_.Next(page, at);
    if (end == Finder::npos) break;
    pieces_.push_back({Text(page.substr(at, end + kClosingLength - at)), false, {}});
    at = end + kClosingLength;
  }
  pieces_.push_back({Text(page.substr(at)), false, {}});
}

std::optional<TextView> TableBlocks::Find(std::size_t offset) {
  Seek(offset);
  std::size_t from = offset > start_ ? offset - start_ : 0;
  while (true) {
    const TextView text = pieces_[current_].text;
    block_ = from < text.size() ? opening_.Next(text, from) : Finder::npos;
    if (block_ != Finder::npos) {
      const std::size_t end = closing_.Next(text, block_);
      if (end == Finder::npos) return std::nullopt;
      block_length_ = end + kClosingLength - block_;
      return text.substr(block_, block_length_);
    }
    if (current_ + 1 == pieces_.size()) return std::nullopt;
    SeekPiece(current_ + 1);
    from = 0;
  }
}

void TableBlocks::ReplaceFirstEqual(TextView text) {
  const Text block = pieces_[current_].text.substr(block_, block_length_);
  EnterPiecesBefore(current_);
  if (const std::optional<std::size_t> before = PieceBefore(block)) SeekPiece(*before);
  Text& piece = pieces_[current_].text;
  Leave(current_);
  piece.replace(Finder(block, Compare::Binary).Next(piece, 0), block.size(), text);
  size_ += text.size() - block.size();
  CloseCurrentPiece();
  if (current_ < entered_) Enter(current_);
}

Text TableBlocks::Page() const {
  Text page;
  page.reserve(size_ + size_ / 8);  // the stages after let it grow
  for (const Piece& piece : pieces_) page += piece.text;
  return page;
}

void TableBlocks::Seek(std::size_t offset) {
  while (current_ > 0 && offset < start_) SeekPiece(current_ - 1);
  while (current_ + 1 < pieces_.size() && offset >= start_ + pieces_[current_].text.size())
    SeekPiece(current_ + 1);
}

void TableBlocks::SeekPiece(std::size_t piece) {
  while (current_ < piece) start_ += pieces_[current_++].text.size();
  while (current_ > piece) start_ -= pieces_[--current_].text.size();
}

void TableBlocks::EnterPiecesBefore(std::size_t piece) {
  while (entered_ < piece) Enter(entered_++);
}

// One way from the end of the piece to its beginning meets every block of it.
void TableBlocks::Enter(std::size_t piece) {
  const TextView text = pieces_[piece].text;
  bool closed = false;
  std::uint64_t hash = 0;
  for (std::size_t at = text.size(); at > 0; --at) {
    if (text[at - 1] == u'>' && at >= kClosingLength &&
        StartsWith(text.substr(at - kClosingLength), kClosing)) {
      closed = true;
      hash = 0;
    }
    hash = Prepend(text[at - 1], hash);
    if (closed && text[at - 1] == u'<' && StartsWith(text.substr(at - 1), kOpening)) {
      pieces_by_hash_[hash].insert(piece);
      pieces_[piece].hashes.push_back(hash);
    }
  }
  pieces_[piece].entered = true;
}

void TableBlocks::Leave(std::size_t piece) {
  for (const std::uint64_t hash : pieces_[piece].hashes) {
    const auto found = pieces_by_hash_.find(hash);
    if (found == pieces_by_hash_.end()) continue;  // two equal blocks in one piece
    found->second.erase(piece);
    if (found->second.empty()) pieces_by_hash_.erase(found);
  }
  pieces_[piece].hashes.clear();
  pieces_[piece].entered = false;
}

std::optional<std::size_t> TableBlocks::PieceBefore(TextView block) {
  const auto found = pieces_by_hash_.find(HashOf(block));
  if (found == pieces_by_hash_.end()) return std::nullopt;
  const Finder finder(block, Compare::Binary);
  for (const std::size_t piece : found->second) {
    if (piece >= current_) break;
    if (finder.Next(pieces_[piece].text, 0) != Finder::npos) return piece;
  }
  return std::nullopt;
}

// A block that lost its closing tag goes on into the pieces after it.
void TableBlocks::CloseCurrentPiece() {
  Text& text = pieces_[current_].text;
  for (std::size_t next = current_ + 1; next < pieces_.size(); ++next) {
    const std::size_t tail = text.size() - std::min(text.size(), kClosingLength);
    const bool closed = StartsWith(TextView(text).substr(tail), kClosing);
    if (closed) return;
    Leave(next);
    text += pieces_[next].text;
    pieces_[next].text.clear();
    if (next < entered_) Enter(next);
  }
}

BlockWalk BalanceTableBlocks(rules::Rewriting& page, const BlockRoutine& balance) {
  const std::int32_t tables = CountOccurrences(page.text(), kOpening, Compare::IgnoreCase);
  if (tables == 0 || tables != CountOccurrences(page.text(), kClosing, Compare::IgnoreCase))
    return BlockWalk::Done;
  TableBlocks blocks(page.text());
  BlockWalk result = BlockWalk::Done;
  bool changed = false;
  std::size_t position = 0;
  while (const std::optional<TextView> block = blocks.Find(position)) {
    Text balanced;
    if (!Attempt([&] { balanced = balance(*block); })) {
      result = BlockWalk::GoBack;
      break;
    }
    // The position is the end of the old block, whatever the page holds there now.
    position = blocks.ClosingOffset();
    if (balanced == *block) continue;
    blocks.ReplaceFirstEqual(balanced);
    if (blocks.size() > page.limit()) throw LimitReached(LimitReached::Limit::Growth);
    changed = true;
  }
  if (changed) page.Assign(blocks.Page());
  return result;
}

BlockWalk BalanceTableBlocks(rules::Rewriting& page, Apartment& apartment) {
  return BalanceTableBlocks(
      page, [&](TextView block) { return modTable::BalanceCellFormatting(apartment, block); });
}

}  // namespace quillary::modQuillary

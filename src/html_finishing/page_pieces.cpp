#include "html_finishing/page_pieces.h"

#include <algorithm>

namespace quillary::html_finishing {

PagePieces::PagePieces(TextView page) {
  const auto brackets =
      std::ranges::count_if(page, [](char16_t unit) { return unit == u'<' || unit == u'>'; });
  pieces_.reserve(static_cast<std::size_t>(brackets) + 2);
  pieces_.resize(1);
  std::size_t start = 0;
  while (start < page.size()) {
    std::size_t end = page.find_first_of(u"<>", page[start] == u'<' ? start + 1 : start);
    if (end == TextView::npos) end = page.size();
    if (end < page.size() && page[end] == u'>') ++end;
    InsertAfter(pieces_[0].prev, page.substr(start, end - start));
    start = end;
  }
}

PagePieces::Id PagePieces::Next(Id piece, int steps) const {
  for (; steps > 0; --steps) piece = pieces_[piece].next;
  return piece;
}

PagePieces::Id PagePieces::Prev(Id piece, int steps) const {
  for (; steps > 0; --steps) piece = pieces_[piece].prev;
  return piece;
}

void PagePieces::Link(Id piece, Id prev) {
  const Id next = pieces_[prev].next;
  pieces_[piece].prev = prev;
  pieces_[piece].next = next;
  pieces_[prev].next = piece;
  pieces_[next].prev = piece;
}

void PagePieces::Remove(Id piece) {
  pieces_[pieces_[piece].prev].next = pieces_[piece].next;
  pieces_[pieces_[piece].next].prev = pieces_[piece].prev;
}

PagePieces::Id PagePieces::InsertAfter(Id place, TextView text) {
  const auto piece = static_cast<Id>(pieces_.size());
  pieces_.push_back({text});
  Link(piece, place);
  return piece;
}

void PagePieces::MoveBefore(Id piece, Id place) {
  Remove(piece);
  Link(piece, pieces_[place].prev);
}

Text PagePieces::Join() const {
  Text page;
  for (Id piece = Next(0); piece != 0; piece = Next(piece)) page += pieces_[piece].text;
  return page;
}

bool HasBrackets(TextView text) { return text.find_first_of(u"<>") != TextView::npos; }

}  // namespace quillary::html_finishing

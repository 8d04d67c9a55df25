#include "platform/rich_text/reader/row_words.h"

#include <algorithm>

#include "platform/rich_text/reader/word_values.h"

namespace quillary::platform::rtf {
namespace {

constexpr std::array<TextView, 4> kRowSides = {u"\\trbrdrt", u"\\trbrdrl", u"\\trbrdrb", u"\\trbrdrr"};
constexpr std::array<TextView, 4> kCellSides = {u"\\clbrdrt", u"\\clbrdrl", u"\\clbrdrb", u"\\clbrdrr"};
constexpr std::int32_t kWidestBorder = 255;
constexpr std::int32_t kFarthestEdge = 99999;
constexpr std::size_t kMostCells = 63;

}  // namespace

void RowWords::Read(const Token& token) {
  if (token.keyword == Keyword::Trowd) *this = RowWords{};
  ReadMeasureWord(token);
  ReadBorderWord(token);
}

void RowWords::BeginNew() {
  if (ended_) *this = RowWords{};
}

void RowWords::ReadMeasureWord(const Token& token) {
  switch (token.keyword) {
    case Keyword::Trgaph:
      BeginNew();
      gap_ = Twips(token.number);
      return;
    case Keyword::Trleft:
      BeginNew();
      left_ = Twips(token.number);
      return;
    case Keyword::Trqc:
      BeginNew();
      alignment_ = Alignment::Centre;
      return;
    case Keyword::Trqr:
      BeginNew();
      alignment_ = Alignment::Right;
      return;
    case Keyword::Cellx:
      BeginNew();
      EndCellDefinition(token.number);
      return;
    default:
      return;
  }
}

void RowWords::ReadBorderWord(const Token& token) {
  switch (token.keyword) {
    case Keyword::Trbrdrt:
      return BeginBorder(true, 0);
    case Keyword::Trbrdrl:
      return BeginBorder(true, 1);
    case Keyword::Trbrdrb:
      return BeginBorder(true, 2);
    case Keyword::Trbrdrr:
      return BeginBorder(true, 3);
    case Keyword::Clbrdrt:
      return BeginBorder(false, 0);
    case Keyword::Clbrdrl:
      return BeginBorder(false, 1);
    case Keyword::Clbrdrb:
      return BeginBorder(false, 2);
    case Keyword::Clbrdrr:
      return BeginBorder(false, 3);
    case Keyword::OtherBorder:
      border_ = nullptr;
      return;
    case Keyword::Brdrs:
      if (border_ != nullptr) border_->shown = true;
      return;
    case Keyword::Brdrnone:
      if (border_ != nullptr) border_->shown = false;
      return;
    case Keyword::Brdrw:
      if (border_ != nullptr) border_->width = std::clamp(token.number, 1, kWidestBorder);
      return;
    default:
      return;
  }
}

void RowWords::BeginBorder(bool of_row, std::size_t side) {
  BeginNew();
  border_ = of_row ? &row_borders_[side] : &cell_borders_[side];
}

// The control writes style and width of a row's border in the other order
// than those of a cell's, and a space after each of the former.
void RowWords::AppendBorder(Text& words, TextView side, const Border& border, bool of_row) {
  if (!border.shown) return;
  words.append(side);
  if (of_row) words += u"\\brdrs";
  words += u"\\brdrw" + Decimal(border.width);
  words += of_row ? u" " : u"\\brdrs";
}

void RowWords::EndCellDefinition(std::int32_t right_edge) {
  if (++cell_count_ > kMostCells) return;
  const std::size_t before = cells_.size();
  for (std::size_t side = 0; side < cell_borders_.size(); ++side) {
    AppendBorder(cells_, kCellSides[side], cell_borders_[side], false);
  }
  if (cells_.size() > before) cells_ += u' ';
  cells_ += u"\\cellx" + Decimal(std::clamp(right_edge, -kFarthestEdge, kFarthestEdge));
  cell_borders_ = {};
  border_ = nullptr;
}

Text RowWords::Words() const {
  Text words = u"\\trowd";
  if (gap_ != 0) words += u"\\trgaph" + Decimal(gap_);
  if (left_ != 0) words += u"\\trleft" + Decimal(left_);
  if (alignment_ == Alignment::Centre) words += u"\\trqc";
  if (alignment_ == Alignment::Right) words += u"\\trqr";
  for (std::size_t side = 0; side < row_borders_.size(); ++side) {
    AppendBorder(words, kRowSides[side], row_borders_[side], true);
  }
  return words + cells_;
}

}  // namespace quillary::platform::rtf

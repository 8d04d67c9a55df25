// A table row's definition: read in any spelling, given back in the canonical
// one.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/rich_text/model/document_model.h"
#include "platform/rich_text/reader/tokens.h"

namespace quillary::platform::rtf {

class RowWords {
 public:
  /// Takes a word of a row definition, "\trowd" included, and passes over any other.
  void Read(const Token& token);
  /// The definition as it stands.
  Text Words() const;
  /// A row ended. A word that follows begins a new definition; without one
  /// the next row has the same.
  void EndRow() { ended_ = true; }

 private:
  struct Border {
    bool shown = false;
    std::int32_t width = 15;
  };
  using Borders = std::array<Border, 4>;  // top, left, bottom, right

  void BeginNew();
  void ReadMeasureWord(const Token& token);
  void ReadBorderWord(const Token& token);
  void BeginBorder(bool of_row, std::size_t side);
  void EndCellDefinition(std::int32_t right_edge);
  static void AppendBorder(Text& words, TextView side, const Border& border, bool of_row);

  std::int32_t gap_ = 0;
  std::int32_t left_ = 0;
  Alignment alignment_ = Alignment::Left;
  Borders row_borders_;
  Borders cell_borders_;
  Border* border_ = nullptr;  // whose style words follow
  Text cells_;
  std::size_t cell_count_ = 0;
  bool ended_ = false;
};

}  // namespace quillary::platform::rtf

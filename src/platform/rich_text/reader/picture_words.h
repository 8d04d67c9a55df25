// The words of a picture, read in any order and given back in the control's.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/rich_text/reader/tokens.h"
#include "text/text.h"

namespace quillary::platform::rtf {

class PictureWords {
 public:
  void Read(const Token& token);
  /// The canonical words; a picture whose kind was never stated is a bitmap.
  Text Words() const;

 private:
  enum Measure : std::size_t {
    kWidth,
    kHeight,
    kShownWidth,
    kShownHeight,
    kScaleX,
    kScaleY,
    kLeft,
    kRight,
    kTop,
    kBottom,
    kMeasures
  };

  Text kind_;
  Text bitmap_;  // the words that only a bitmap has
  std::array<std::int32_t, kMeasures> measures_{};
};

}  // namespace quillary::platform::rtf

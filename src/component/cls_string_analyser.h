// Takes a text apart into words, beside the conversions, which do not call it.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "text/text.h"

namespace quillary::component {

class clsStringAnalyser {
 public:
  /// The next word, up to the nearest delimiter; "" when there is none any more. Only the first call
  /// after creation or Restart reads its arguments: the case of letters is ignored if nothing is said,
  /// and a space is the delimiter if there are none.
  /// A text of one unit gives "", and popping ends early where the delimiter that was searched last
  /// stands at the end of the text: "a,b;" with "," and ";" gives only "a".
  Text PopWord(TextView pInputString, std::optional<bool> pbIgnoreCase = std::nullopt,
               const std::optional<std::vector<Text>>& pcolDelimiters = std::nullopt);

  /// Forgets the text and starts over. The delimiters stay: a first call without any adds a space.
  void Restart();

 private:
  void Begin(TextView input, bool ignore_case, const std::optional<std::vector<Text>>& delimiters);

  bool new_ = true;
  Text input_;
  Text searched_;  // the input as it is compared
  std::vector<Text> delimiters_;
  bool ignore_case_ = true;
  std::int32_t position_ = 1;
  std::int32_t last_hit_ = 1;
};

}  // namespace quillary::component

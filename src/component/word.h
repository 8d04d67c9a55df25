// One text with its length and its letters in either case, beside the conversions.
#pragma once

#include <utility>

#include "text/text.h"

namespace quillary::component {

class Word {
 public:
  /// Returns the length of the word
  std::int32_t Length() const { return quillary::Length(value_); }
  /// Returns the all lower case value of the word
  Text LowerCase() const { return ToLower(value_); }
  /// Returns the all upper cased value of the word
  Text UpperCase() const { return ToUpper(value_); }
  /// Returns the value of this word
  const Text& Value() const { return value_; }
  void Value(Text vData) { value_ = std::move(vData); }

 private:
  Text value_;
};

}  // namespace quillary::component

// A checked 16-bit counter: a result outside its width is an overflow
// failure, never a wrap-around.
#pragma once

#include <cstdint>
#include <limits>

#include "text/failure.h"

namespace quillary {

class Integer16 {
 public:
  constexpr Integer16() = default;
  constexpr Integer16(std::int64_t value) : value_(Checked(value)) {}  // NOLINT: reads as a plain number

  constexpr operator std::int16_t() const { return value_; }  // NOLINT: reads as a plain number
  Integer16& operator+=(std::int64_t other) {
    value_ = Checked(value_ + other);
    return *this;
  }
  Integer16& operator++() { return *this += 1; }

 private:
  static constexpr std::int16_t Checked(std::int64_t value) {
    if (value < std::numeric_limits<std::int16_t>::min() ||
        value > std::numeric_limits<std::int16_t>::max()) {
      throw Failure(Failure::Kind::Overflow);
    }
    return static_cast<std::int16_t>(value);
  }

  std::int16_t value_ = 0;
};

}  // namespace quillary

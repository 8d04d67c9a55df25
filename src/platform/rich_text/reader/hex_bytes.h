// The data of pictures and objects.
#pragma once

#include <string>

#include "text/text.h"

namespace quillary::platform::rtf {

/// Collects hexadecimal digits into bytes; anything else is passed over. Bytes
/// may also come as they are.
class HexBytes {
 public:
  void Add(TextView digits);
  void AddRaw(TextView bytes);
  std::string Take();

 private:
  std::string bytes_;
  int pending_ = -1;
};

}  // namespace quillary::platform::rtf

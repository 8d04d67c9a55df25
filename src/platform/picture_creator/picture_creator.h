// The picture creator: turns an image file into picture text of RTF.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/files/files.h"
#include "text/text.h"

namespace quillary::platform {

class PictureCreator {
 public:
  virtual ~PictureCreator() = default;

  /// The picture text of a file, and one space after it, which the caller drops. Width and
  /// height are in pixels of 1/96 inch; where one is 0 it follows from the other, where both
  /// are, from the file. The other arguments are constants of the call. Throws Failure (raised)
  /// for a file that cannot be read or is no picture.
  virtual Text CreateFromFile(TextView path, std::int16_t width, std::int16_t height, std::int16_t left,
                              std::int16_t top, bool scaled, TextView licence) = 0;
};

/// PNG and JPEG files go in as they are, BMP and GIF files as PNG.
std::unique_ptr<PictureCreator> MakePictureCreator(std::shared_ptr<Files> files);

}  // namespace quillary::platform

// The picture extractor: writes the pictures of an RTF text to image files.
#pragma once

#include <cstdint>
#include <memory>

#include "text/text.h"

namespace quillary::platform {

class PictureExtractor {
 public:
  virtual ~PictureExtractor() = default;

  /// Writes one file per picture of `rtf`, in document order, under
  /// `path_prefix` followed by a three-digit number from 000 and the ending of
  /// the format. `format` is 2 for png and 1 for jpeg; `quality` is in percent.
  /// The other arguments are constants of the call. The result is not used.
  virtual std::int32_t Parse(TextView rtf, TextView path_prefix, std::int16_t origin, std::int16_t format,
                             std::int16_t quality, std::int16_t pages, TextView licence) = 0;
};

std::unique_ptr<PictureExtractor> MakePictureExtractor();

}  // namespace quillary::platform

#include "platform/pictures/picture_extractor.h"

namespace quillary::platform {
namespace {

// Takes every picture and writes no file, so that a document with pictures
// keeps its text.
class SilentExtractor final : public PictureExtractor {
 public:
  std::int32_t Parse(TextView, TextView, std::int16_t, std::int16_t, std::int16_t, std::int16_t,
                     TextView) override {
    return 0;
  }
};

}  // namespace

std::unique_ptr<PictureExtractor> MakePictureExtractor() { return std::make_unique<SilentExtractor>(); }

}  // namespace quillary::platform

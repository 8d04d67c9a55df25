// The pictures of an RTF text: their words and their bytes.
#pragma once

#include <cstdint>
#include <string>

#include "text/text.h"

namespace quillary::platform {

enum class PictureKind { Unknown, Png, Jpeg, Dib, DeviceBitmap, Wmf, Emf };

struct RtfPicture {
  PictureKind kind = PictureKind::Unknown;
  std::string bytes;
  // As the words of the picture say; 0 where they do not.
  std::int32_t width = 0;  // in pixels, of a metafile in hundredths of millimetres
  std::int32_t height = 0;
  std::int32_t goal_width = 0;  // in twips
  std::int32_t goal_height = 0;
  std::int32_t scale_x = 100;  // in percent
  std::int32_t scale_y = 100;
  std::int32_t row_bytes = 0;  // of a device bitmap
  std::int32_t bits = 1;
};

/// How a picture begins.
inline constexpr TextView kPictureStart = u"{\\pict\\";

/// The picture whose group begins at that offset, up to the end of the group or of the text.
RtfPicture ReadPicture(TextView rtf, std::size_t start);

}  // namespace quillary::platform

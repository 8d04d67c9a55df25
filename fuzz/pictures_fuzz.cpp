// Any bytes as each kind of picture, and as the words and digits of a picture in RTF.
#include <cstdint>
#include <string_view>

#include "platform/picture_creator/image_header.h"
#include "platform/pictures/bitmap.h"
#include "platform/pictures/gif.h"
#include "platform/pictures/metafile.h"
#include "platform/pictures/rtf_pictures.h"
#include "text/encodings.h"
#include "text/failure.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace quillary::platform;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  try {
    ReadImageHeader(bytes);
    ReadPicture(quillary::FromWindows1252(bytes), 0);
    DecodeBmp(bytes);
    DecodeDib(bytes);
    DecodeGif(bytes);
    DecodeJpeg(bytes);
    DecodePng(bytes);
    double pixels = 1e7;
    DrawWmf(bytes, 40, 30, pixels);
    DrawEmf(bytes, 40, 30, pixels);
  } catch (const quillary::LimitReached&) {
  }
  return 0;
}

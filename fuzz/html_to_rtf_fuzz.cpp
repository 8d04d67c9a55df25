// Any bytes as a page, read by the page reader or as they are, through the whole
// conversion to RTF.
#include <cstdint>
#include <string_view>

#include "component/conversions.h"
#include "page_reader/page_reader.h"
#include "text/encodings.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  for (const bool raw : {false, true}) {
    quillary::Apartment apartment;
    apartment.working_limit = std::size_t{1} << 20;
    quillary::component::Properties properties;
    quillary::component::Class_InitProperties(properties);
    properties.HTML_Text = raw ? quillary::FromWindows1252(bytes) : quillary::page_reader::ReadPage(bytes);
    try {
      quillary::component::ConvertHTML2RTF(apartment, properties);
    } catch (const quillary::Failure&) {
    } catch (const quillary::LimitReached&) {
    }
  }
  return 0;
}

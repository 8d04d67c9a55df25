#include "component/file_to_string.h"

#include "text/encodings.h"

namespace quillary::component {

Text FileToString(Apartment& apartment, TextView SourceFile) {
  Text result;
  Attempt([&] {
    if (!apartment.services.files || !apartment.services.files->FileIsReadable(SourceFile)) return;
    const auto bytes = apartment.services.files->Read(SourceFile, limits::kInputUnits);
    if (bytes) result = FromWindows1252(*bytes);
  });
  return result;
}

}  // namespace quillary::component

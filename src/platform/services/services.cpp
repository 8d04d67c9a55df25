#include "platform/services/services.h"

namespace quillary::platform {

Services Services::System() {
  return {MakeRichTextBox, MakePictureExtractor, MakeCodePageDecoder, MakeHtmlCleaner, MakeDiagnostics()};
}

}  // namespace quillary::platform

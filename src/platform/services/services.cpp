#include "platform/services/services.h"

namespace quillary::platform {

Services Services::System() {
  return {MakeRichTextBox,   MakePictureExtractor,
          MakeCodePageDecoder, MakeHtmlCleaner,
          [] { return MakeFetcher(Fetching::PublicHosts); }, MakeFiles(),
          MakeDiagnostics()};
}

}  // namespace quillary::platform

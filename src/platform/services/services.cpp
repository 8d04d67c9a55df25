#include "platform/services/services.h"

namespace quillary::platform {

Services Services::System(Fetching fetching, const std::vector<std::filesystem::path>& folders) {
  const std::shared_ptr<Files> files = MakeFiles(folders);
  return {
      .rich_text_box = MakeRichTextBox,
      .picture_extractor = MakePictureExtractor,
      .code_page_decoder = MakeCodePageDecoder,
      .html_cleaner = MakeHtmlCleaner,
      .fetcher = [fetching] { return MakeFetcher(fetching); },
      .picture_creator = [files] { return MakePictureCreator(files); },
      .files = files,
      .diagnostics = MakeDiagnostics(),
  };
}

}  // namespace quillary::platform

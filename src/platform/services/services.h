// What a conversion needs from outside. Each piece can be replaced by a test
// or a host; a missing one fails as an object that cannot be created does.
#pragma once

#include <functional>
#include <memory>

#include "platform/code_pages/code_page_decoder.h"
#include "platform/fetcher/fetcher.h"
#include "platform/files/files.h"
#include "platform/html_cleaner/html_cleaner.h"
#include "platform/picture_creator/picture_creator.h"
#include "platform/pictures/picture_extractor.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/system/diagnostics.h"

namespace quillary::platform {

struct Services {
  /// Each call gives a new object. Throws Failure (raised) if there is none to be had.
  std::function<std::unique_ptr<RichTextBox>()> rich_text_box;
  std::function<std::unique_ptr<PictureExtractor>()> picture_extractor;
  std::function<std::unique_ptr<CodePageDecoder>()> code_page_decoder;
  std::function<std::unique_ptr<HtmlCleaner>()> html_cleaner;
  std::function<std::unique_ptr<Fetcher>()> fetcher;
  std::function<std::unique_ptr<PictureCreator>()> picture_creator;
  std::shared_ptr<Files> files;
  std::shared_ptr<Diagnostics> diagnostics;

  /// The services of this machine. Only files in these folders are read, those of all if there
  /// are none.
  static Services System(Fetching fetching = Fetching::PublicHosts,
                         const std::vector<std::filesystem::path>& folders = {});
};

}  // namespace quillary::platform

// The fetcher: downloads the pictures of pages from the web.
#pragma once

#include <memory>

#include "text/text.h"

namespace quillary::platform {

class Fetcher {
 public:
  virtual ~Fetcher() = default;

  /// Writes what stands under an address to a file. May return before the file is
  /// ready. Throws Failure (raised) if it never will be.
  virtual void DownloadFile(TextView url, TextView path) = 0;
};

/// What may be fetched.
enum class Fetching {
  Off,          // every download fails
  PublicHosts,  // nothing from private networks or this machine itself
  AllHosts,
};

/// http, https and ftp, within the limits of time, size and redirections; the file is there
/// when a call returns, and is never there in part.
std::unique_ptr<Fetcher> MakeFetcher(Fetching fetching);

}  // namespace quillary::platform

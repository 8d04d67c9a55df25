// The library that knows the protocols. It is loaded with the first download, since
// programs that fetch nothing should not wait for it and what it needs.
#pragma once

#define CURL_DISABLE_TYPECHECK  // its checks need the functions themselves
#include <curl/curl.h>

#undef curl_easy_setopt

namespace quillary::platform {

struct CurlLibrary {
  decltype(&curl_easy_init) easy_init;
  decltype(&curl_easy_setopt) easy_setopt;
  decltype(&curl_easy_perform) easy_perform;
  decltype(&curl_easy_cleanup) easy_cleanup;

  /// The library, or null if this machine does not have it. It is never unloaded.
  static const CurlLibrary* Get();
};

}  // namespace quillary::platform

#include "platform/fetcher/curl_library.h"

#include <dlfcn.h>

namespace quillary::platform {
namespace {

template <class Function>
bool Find(void* library, const char* name, Function& function) {
  function = reinterpret_cast<Function>(dlsym(library, name));
  return function != nullptr;
}

struct Loaded {
  CurlLibrary library{};
  bool complete = false;

  Loaded() {
    void* const handle = dlopen("libcurl.so.4", RTLD_NOW | RTLD_LOCAL);
    if (handle == nullptr) return;
    decltype(&curl_global_init) global_init = nullptr;
    complete = Find(handle, "curl_easy_init", library.easy_init) &&
               Find(handle, "curl_easy_setopt", library.easy_setopt) &&
               Find(handle, "curl_easy_perform", library.easy_perform) &&
               Find(handle, "curl_easy_cleanup", library.easy_cleanup) &&
               Find(handle, "curl_global_init", global_init) && global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
  }
};

}  // namespace

const CurlLibrary* CurlLibrary::Get() {
  static const Loaded loaded;
  return loaded.complete ? &loaded.library : nullptr;
}

}  // namespace quillary::platform

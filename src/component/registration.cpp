#include "component/registration.h"

#include <dlfcn.h>

#include <cstdlib>
#include <system_error>

#include "component/bas_safe_ctl.h"
#include "component/properties.h"
#include "platform/files/files.h"
#include "quillary/server.h"
#include "quillary/version.h"
#include "text/encodings.h"
#include "text/failure.h"

namespace quillary::server {
namespace {

namespace fs = std::filesystem;

// Operations of the default interface with the types of their results and arguments.
constexpr const char* kOperations[] = {
    "text ConvertRawHtml()",   "text ConvertRTFPlain()",
    "text ConvertPlainHTML()", "text ConvertRTFHeader()",
    "text ConvertRTF()",       "text ConvertNoBody()",
    "text ConvertHTML2RTF()",  "text FileToString(text SourceFile)",
};

// The shared library or program that this code is part of.
fs::path ThisLibrary() {
  Dl_info info = {};
  std::error_code error;
  if (dladdr(reinterpret_cast<void*>(&ClassDescription), &info) == 0 || info.dli_fname == nullptr) return {};
  return fs::absolute(info.dli_fname, error);
}

fs::path ClassFile(const fs::path& data_folder) { return data_folder / "quillary" / "Quillaryv8.class"; }

// Where the desktop's conventions want a user's data.
fs::path UserDataFolder() {
  if (const char* folder = std::getenv("XDG_DATA_HOME"); folder != nullptr && *folder == '/') return folder;
  if (const char* home = std::getenv("HOME"); home != nullptr && *home == '/') {
    return fs::path(home) / ".local" / "share";
  }
  throw Failure(Failure::Kind::Raised);
}

// Runs an entry point; a failure of any kind is the host's to see as a number.
template <class Action>
HResult AsResult(Action&& action) noexcept {
  try {
    action();
    return kOk;
  } catch (...) {
    return kFail;
  }
}

}  // namespace

std::string ClassDescription(const fs::path& library) {
  std::string words = "# Written by DllRegisterServer, removed by DllUnregisterServer.\n[class Quillaryv8]\n";
  words += "id = " + ToUtf8(basSafeCtl::GuidText(kQuillaryv8Class)) + "\n";
  words += "version = " + std::string(Version()) + "\n";
  words += "server = " + library.string() + "\n";
  words += "default = _Quillaryv8\nimplements = IObjectSafety, IPersistPropertyBag\n\n";
  words += "[interface _Quillaryv8]\nid = " + ToUtf8(basSafeCtl::GuidText(kQuillaryv8Interface)) + "\n";
  for (const component::PropertyName& property : component::AllProperties()) {
    words += "property = text " + std::string(property.name) + "\n";
  }
  for (const char* operation : kOperations) words += "operation = " + std::string(operation) + "\n";
  return words;
}

void RegisterClass(const fs::path& data_folder) {
  const fs::path file = ClassFile(data_folder);
  std::error_code error;
  fs::create_directories(file.parent_path(), error);
  if (error) throw Failure(Failure::Kind::Raised);
  platform::WriteWholeFile(file, ClassDescription(ThisLibrary()));
}

void UnregisterClass(const fs::path& data_folder) {
  std::error_code error;
  fs::remove(ClassFile(data_folder), error);
  if (error) throw Failure(Failure::Kind::Raised);
}

}  // namespace quillary::server

using quillary::server::HResult;

HResult DllRegisterServer() noexcept {
  return quillary::server::AsResult(
      [] { quillary::server::RegisterClass(quillary::server::UserDataFolder()); });
}

HResult DllUnregisterServer() noexcept {
  return quillary::server::AsResult(
      [] { quillary::server::UnregisterClass(quillary::server::UserDataFolder()); });
}

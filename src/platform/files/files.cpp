#include "platform/files/files.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <string_view>
#include <system_error>
#include <utility>

#include "text/ascii.h"
#include "text/encodings.h"
#include "text/failure.h"

namespace quillary::platform {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kTemporaryFolder = "c:/windows/temp";

// Where a folder really lies, or an empty path.
fs::path RealPath(const fs::path& path) {
  std::error_code error;
  fs::path real = fs::canonical(path, error);
  return error ? fs::path() : real;
}

bool IsBelow(const fs::path& path, const fs::path& folder) {
  return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first == folder.end();
}

class SystemFiles final : public Files {
 public:
  explicit SystemFiles(const std::vector<fs::path>& folders) : limited_(!folders.empty()) {
    for (const fs::path& folder : folders) {
      if (fs::path real = RealPath(folder); !real.empty()) folders_.push_back(std::move(real));
    }
  }

  std::optional<std::string> Read(TextView path, std::size_t longest) override {
    const fs::path found = Find(path);
    return !limited_ || IsGiven(found) ? BytesOf(found, longest) : std::nullopt;
  }

  bool LiesIn(TextView home, TextView path) override {
    const fs::path found = Find(path);
    const fs::path folder = RealPath(HostPath(home));
    return (!folder.empty() && IsBelow(found, folder)) || IsGiven(found);
  }

  bool FileIsReadable(TextView path) override {
    const fs::path found = Find(path);
    return !found.empty() && (!limited_ || IsGiven(found)) &&
           std::ifstream(found, std::ios::binary).is_open();
  }

  void Delete(TextView path) override {
    std::error_code error;
    const fs::path there = HostPath(path);
    if (!there.empty()) fs::remove(there, error);
    if (error) throw Failure(Failure::Kind::Raised);
  }

 private:
  // The plain file of this name where it really lies, or an empty path.
  static fs::path Find(TextView path) {
    std::error_code error;
    const fs::path there = HostPath(path);
    return !there.empty() && fs::is_regular_file(there, error) ? RealPath(there) : fs::path();
  }

  bool IsGiven(const fs::path& path) const {
    return std::any_of(folders_.begin(), folders_.end(),
                       [&](const fs::path& folder) { return IsBelow(path, folder); });
  }

  static std::optional<std::string> BytesOf(const fs::path& path, std::size_t longest) {
    std::error_code error;
    const std::uintmax_t size = path.empty() ? 0 : fs::file_size(path, error);
    std::ifstream file(path, std::ios::binary);
    if (error || size > longest || !file.is_open()) return std::nullopt;
    std::string bytes(static_cast<std::size_t>(size), '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(size));
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
  }

  bool limited_;
  std::vector<fs::path> folders_;
};

}  // namespace

fs::path HostPath(TextView path) {
  std::string name = ToUtf8(path);
  std::replace(name.begin(), name.end(), '\\', '/');
  if (name.find('\0') != std::string::npos) return {};
  std::string start = name.substr(0, kTemporaryFolder.size());
  std::transform(start.begin(), start.end(), start.begin(), AsciiLower<char>);
  if (start == kTemporaryFolder && (name.size() == start.size() || name[start.size()] == '/')) {
    std::error_code error;
    const fs::path folder = fs::temp_directory_path(error);
    return error ? fs::path() : folder / name.substr(std::min(name.size(), start.size() + 1));
  }
  if (name.size() >= 2 && name[1] == ':') return {};
  return name;
}

void WriteWholeFile(const fs::path& path, std::string_view bytes) {
  const int file =
      open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0666);
  if (file < 0) throw Failure(Failure::Kind::Raised);
  bool whole = true;
  while (whole && !bytes.empty()) {
    const ssize_t written = write(file, bytes.data(), bytes.size());
    whole = written > 0;
    if (whole) bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  if (close(file) != 0 || !whole) throw Failure(Failure::Kind::Raised);
}

std::shared_ptr<Files> MakeFiles(const std::vector<fs::path>& folders) {
  return std::make_shared<SystemFiles>(folders);
}

}  // namespace quillary::platform

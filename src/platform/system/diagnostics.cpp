#include "platform/system/diagnostics.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "text/encodings.h"
#include "text/failure.h"

namespace quillary::platform {
namespace {

class File {
 public:
  explicit File(int descriptor) : descriptor_(descriptor) {}
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  ~File() {
    if (descriptor_ >= 0) close(descriptor_);
  }
  int descriptor() const { return descriptor_; }

 private:
  int descriptor_;
};

[[noreturn]] void FailWithErrno(const std::filesystem::path& path) {
  const int code = errno;
  throw Failure(Failure::Kind::Raised, static_cast<std::uint32_t>(code), path.string(), std::strerror(code));
}

class SystemDiagnostics final : public Diagnostics {
 public:
  void Message(TextView words) override { std::fprintf(stderr, "quillary: %s\n", ToUtf8(words).c_str()); }

  void WriteDump(TextView text) override {
    std::error_code error;
    const std::filesystem::path path = std::filesystem::temp_directory_path(error) / "rtftext.txt";
    // A pipe or a link that someone else has put there is not followed; the
    // flag for not blocking makes a pipe without a reader an error.
    const File file(open(path.c_str(), O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0600));
    struct stat status {};
    if (error || file.descriptor() < 0 || fstat(file.descriptor(), &status) != 0) FailWithErrno(path);
    if (!S_ISREG(status.st_mode) || status.st_nlink != 1) {
      throw Failure(Failure::Kind::Raised, 0, path.string(), "not a plain file");
    }
    if (ftruncate(file.descriptor(), 0) != 0) FailWithErrno(path);
    const std::string bytes = ToWindows1252(text, '?') + "\r\n";
    for (std::size_t written = 0; written < bytes.size();) {
      const ssize_t count = write(file.descriptor(), bytes.data() + written, bytes.size() - written);
      if (count < 0) FailWithErrno(path);
      written += static_cast<std::size_t>(count);
    }
  }
};

}  // namespace

std::shared_ptr<Diagnostics> MakeDiagnostics() { return std::make_shared<SystemDiagnostics>(); }

}  // namespace quillary::platform

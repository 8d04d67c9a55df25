#include "platform/fetcher/fetcher.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <system_error>

#include "platform/fetcher/curl_library.h"
#include "platform/fetcher/public_address.h"
#include "platform/files/files.h"
#include "text/encodings.h"
#include "text/failure.h"
#include "text/limits.h"

namespace quillary::platform {
namespace {

namespace fs = std::filesystem;

constexpr const char* kProtocols = "http,https,ftp";

// A download under way: a file that is deleted unless it is kept.
class PartialFile {
 public:
  explicit PartialFile(fs::path path) : path_(std::move(path)), file_(std::fopen(path_.c_str(), "wbxe")) {}
  PartialFile(const PartialFile&) = delete;
  PartialFile& operator=(const PartialFile&) = delete;
  ~PartialFile() {
    if (file_ == nullptr) return;
    std::fclose(file_);
    std::error_code error;
    fs::remove(path_, error);
  }

  bool is_open() const { return file_ != nullptr; }

  std::size_t Write(const char* bytes, std::size_t count) {
    written_ += count;
    return written_ > limits::kPictureFileBytes ? 0 : std::fwrite(bytes, 1, count, file_);
  }

  bool KeepAs(const fs::path& path) {
    const bool whole = std::fclose(file_) == 0;
    file_ = nullptr;
    std::error_code error;
    if (whole) fs::rename(path_, path, error);
    if (whole && !error) return true;
    fs::remove(path_, error);
    return false;
  }

 private:
  fs::path path_;
  std::FILE* file_;
  std::size_t written_ = 0;
};

std::size_t WriteBytes(char* bytes, std::size_t size, std::size_t count, void* file) {
  return static_cast<PartialFile*>(file)->Write(bytes, size * count);
}

// The address is looked at when it is connected to, so that neither a redirection nor a
// name that is resolved anew leads to another one.
curl_socket_t OpenPublicSocket(void*, curlsocktype, curl_sockaddr* address) {
  if (!IsPublicAddress(address->addr)) return CURL_SOCKET_BAD;
  return socket(address->family, address->socktype | SOCK_CLOEXEC, address->protocol);
}

class CurlFetcher final : public Fetcher {
 public:
  explicit CurlFetcher(Fetching fetching) : fetching_(fetching) {}

  void DownloadFile(TextView url, TextView path) override {
    if (fetching_ == Fetching::Off) throw Failure(Failure::Kind::Raised);
    const fs::path target = HostPath(path);
    PartialFile file(target.string() + ".part" + std::to_string(getpid()));
    if (target.empty() || !file.is_open() || !Fetch(ToUtf8(url), file) || !file.KeepAs(target)) {
      throw Failure(Failure::Kind::Raised);
    }
  }

 private:
  bool Fetch(const std::string& url, PartialFile& file) const {
    const CurlLibrary* curl = CurlLibrary::Get();
    if (curl == nullptr) return false;
    CURL* const transfer = curl->easy_init();
    if (transfer == nullptr) return false;
    const auto set = [&](CURLoption option, auto value) { curl->easy_setopt(transfer, option, value); };
    set(CURLOPT_URL, url.c_str());
    set(CURLOPT_PROTOCOLS_STR, kProtocols);
    set(CURLOPT_REDIR_PROTOCOLS_STR, kProtocols);
    set(CURLOPT_FOLLOWLOCATION, 1L);
    set(CURLOPT_MAXREDIRS, static_cast<long>(limits::kFetchRedirections));
    set(CURLOPT_TIMEOUT, static_cast<long>(limits::kFetchSeconds));
    set(CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(limits::kPictureFileBytes));
    set(CURLOPT_FAILONERROR, 1L);
    set(CURLOPT_NOSIGNAL, 1L);  // a library leaves the signals of its host alone
    set(CURLOPT_USERAGENT, "Quillary");
    set(CURLOPT_WRITEFUNCTION, WriteBytes);
    set(CURLOPT_WRITEDATA, static_cast<void*>(&file));
    if (fetching_ == Fetching::PublicHosts) {
      set(CURLOPT_OPENSOCKETFUNCTION, OpenPublicSocket);
      set(CURLOPT_PROXY, "");  // a proxy would connect to addresses that nobody has looked at
    }
    const CURLcode outcome = curl->easy_perform(transfer);
    curl->easy_cleanup(transfer);
    return outcome == CURLE_OK;
  }

  Fetching fetching_;
};

}  // namespace

std::unique_ptr<Fetcher> MakeFetcher(Fetching fetching) { return std::make_unique<CurlFetcher>(fetching); }

}  // namespace quillary::platform

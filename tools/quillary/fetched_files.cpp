#include "fetched_files.h"

#include <stdlib.h>

#include <map>
#include <system_error>
#include <utility>

#include "text/encodings.h"
#include "text/failure.h"

namespace quillary::command_line {
namespace {

namespace fs = std::filesystem;
using platform::Fetcher;
using platform::Files;

// Reads the downloaded files in place of those that they are named like.
class FetchedFiles final : public Files {
 public:
  explicit FetchedFiles(std::shared_ptr<Files> files) : files_(std::move(files)) {}
  FetchedFiles(const FetchedFiles&) = delete;
  FetchedFiles& operator=(const FetchedFiles&) = delete;
  ~FetchedFiles() override {
    std::error_code error;
    if (!folder_.empty()) fs::remove_all(folder_, error);
  }

  std::optional<std::string> Read(TextView path, std::size_t longest) override {
    const auto fetched = fetched_.find(Text(path));
    return fetched == fetched_.end() ? files_->Read(path, longest) : own_->Read(fetched->second, longest);
  }
  bool LiesIn(TextView home, TextView path) override { return files_->LiesIn(home, path); }
  bool FileIsReadable(TextView path) override {
    const auto fetched = fetched_.find(Text(path));
    return fetched != fetched_.end() && own_->FileIsReadable(fetched->second);
  }
  void Delete(TextView path) override { fetched_.erase(Text(path)); }

  /// Where the download of that name goes.
  const Text& PlaceOf(TextView path) {
    if (folder_.empty()) {
      std::error_code error;
      std::string name = (fs::temp_directory_path(error) / "quillary-XXXXXX").string();
      if (error || mkdtemp(name.data()) == nullptr) throw Failure(Failure::Kind::Raised);
      folder_ = name;
      own_ = platform::MakeFiles({folder_});
    }
    Text& place = fetched_[Text(path)];
    place = FromUtf8((folder_ / std::to_string(fetched_.size())).string());
    return place;
  }

 private:
  std::shared_ptr<Files> files_;
  std::shared_ptr<Files> own_;
  fs::path folder_;
  std::map<Text, Text> fetched_;  // the names in use, and where they are
};

class Downloads final : public Fetcher {
 public:
  explicit Downloads(std::shared_ptr<FetchedFiles> files)
      : files_(std::move(files)), fetcher_(platform::MakeFetcher(platform::Fetching::PublicHosts)) {}
  void DownloadFile(TextView url, TextView path) override {
    fetcher_->DownloadFile(url, files_->PlaceOf(path));
  }

 private:
  std::shared_ptr<FetchedFiles> files_;
  std::unique_ptr<Fetcher> fetcher_;
};

}  // namespace

platform::Services WithDownloads(platform::Services services) {
  const auto files = std::make_shared<FetchedFiles>(services.files);
  services.files = files;
  services.fetcher = [files] { return std::make_unique<Downloads>(files); };
  services.picture_creator = [files] { return platform::MakePictureCreator(files); };
  return services;
}

}  // namespace quillary::command_line

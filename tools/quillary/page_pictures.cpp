#include "page_pictures.h"

#include <stdlib.h>

#include <memory>
#include <utility>

#include "text/ascii.h"
#include "text/encodings.h"
#include "text/failure.h"

namespace quillary::command_line {
namespace {

namespace fs = std::filesystem;

constexpr TextView kWord = u"quillarypictures";

// A path as a part of an address.
std::string Escaped(const std::string& path) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string escaped;
  for (const char byte : path) {
    const auto value = static_cast<unsigned char>(byte);
    if (IsAsciiAlphanumeric(value) || std::string_view("/-._~").find(byte) != std::string_view::npos) {
      escaped += byte;
    } else {
      escaped += {'%', kDigits[value >> 4], kDigits[value & 15]};
    }
  }
  return escaped;
}

class Redirected final : public platform::PictureExtractor {
 public:
  Redirected(std::unique_ptr<PictureExtractor> extractor, TextView folder)
      : extractor_(std::move(extractor)), folder_(folder) {}

  std::int32_t Parse(TextView rtf, TextView path_prefix, std::int16_t origin, std::int16_t format,
                     std::int16_t quality, std::int16_t pages, TextView licence) override {
    const Text prefix = folder_ + u"/" + Text(path_prefix.substr(kWord.size() + 1));
    return extractor_->Parse(rtf, prefix, origin, format, quality, pages, licence);
  }

 private:
  std::unique_ptr<PictureExtractor> extractor_;
  Text folder_;
};

}  // namespace

PagePictures::PagePictures(fs::path folder, std::string link)
    : folder_(std::move(folder)), link_(std::move(link)) {}

PagePictures PagePictures::Beside(const fs::path& page) {
  const std::string name = page.stem().string() + "_files";
  return {page.parent_path() / name, Escaped(name)};
}

PagePictures PagePictures::In(const fs::path& folder) {
  std::error_code error;
  const fs::path whole = fs::absolute(folder, error);
  return {error ? folder : whole, "file://" + Escaped((error ? folder : whole).string())};
}

PagePictures PagePictures::Temporary() { return {{}, {}}; }

void PagePictures::MakeFolder() {
  std::error_code error;
  if (folder_.empty()) {
    std::string name = (fs::temp_directory_path(error) / "quillary-XXXXXX").string();
    if (error || mkdtemp(name.data()) == nullptr) throw Failure(Failure::Kind::Raised);
    folder_ = name;
    link_ = "file://" + Escaped(name);
  }
  fs::create_directories(folder_, error);
  if (error) throw Failure(Failure::Kind::Raised);
  any_ = true;
}

void PagePictures::Attach(Apartment& apartment, component::Properties& properties) {
  properties.ImageFolder = kWord;
  apartment.services.picture_extractor = [this, make = apartment.services.picture_extractor] {
    MakeFolder();
    return std::make_unique<Redirected>(make(), FromUtf8(folder_.string()));
  };
}

// The cleaner writes the separator in its own ways.
Text PagePictures::WithLinks(Text page) const {
  if (!any_) return page;
  const Text link = FromUtf8(link_) + u"/";
  for (const TextView separator : {u"\\", u"/", u"%5C", u"%5c"}) {
    ReplaceIn(page, Joined({u"file:///", kWord, separator}), link);
  }
  return page;
}

}  // namespace quillary::command_line

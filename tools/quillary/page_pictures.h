// The pictures of a page: where their files go, and how the page names them.
#pragma once

#include <filesystem>
#include <string>

#include "apartment/apartment.h"
#include "component/properties.h"

namespace quillary::command_line {

/// Where the pictures of one document go. The rules put a folder into the page as it stands, so
/// the conversion is given a plain word in its place, and the word is replaced in the page.
class PagePictures {
 public:
  /// In `folder`, which is made when the first picture comes; the page names it by `link`.
  PagePictures(std::filesystem::path folder, std::string link);

  /// The folder `page_files` beside the page of that path, named relative to the page.
  static PagePictures Beside(const std::filesystem::path& page);
  /// A folder that is named in full.
  static PagePictures In(const std::filesystem::path& folder);
  /// A new folder among the temporary files.
  static PagePictures Temporary();

  /// Lets a conversion write its pictures there. The object must outlive it.
  void Attach(Apartment& apartment, component::Properties& properties);
  Text WithLinks(Text page) const;

  bool any() const { return any_; }
  const std::filesystem::path& folder() const { return folder_; }

 private:
  void MakeFolder();

  std::filesystem::path folder_;  // empty: a new one among the temporary files
  std::string link_;
  bool any_ = false;
};

}  // namespace quillary::command_line

// Files by the names that documents use: "\" and "/" both separate folders, and
// c:\windows\temp is the system's temporary folder. Other drives do not exist.
#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "text/text.h"

namespace quillary::platform {

/// The path on this machine, or an empty one for a file on a drive that does not exist.
std::filesystem::path HostPath(TextView path);

/// Writes a file anew, never through a link. Throws Failure (raised) if it cannot be written.
void WriteWholeFile(const std::filesystem::path& path, std::string_view bytes);

class Files {
 public:
  virtual ~Files() = default;

  /// The bytes of a file. None if it cannot be read, is no plain file, is longer than
  /// `longest` bytes, or does not lie in a folder that may be read.
  virtual std::optional<std::string> Read(TextView path, std::size_t longest) = 0;

  /// Whether a file lies in `home` or below it, or in one of the folders that were given.
  virtual bool LiesIn(TextView home, TextView path) = 0;

  /// Whether it can be opened for reading.
  virtual bool FileIsReadable(TextView path) = 0;

  /// Deletes a file if it exists. Throws Failure (raised) if it cannot be deleted.
  virtual void Delete(TextView path) = 0;
};

/// The files of this machine in these folders and below them, links followed; those of all
/// folders if there are none.
std::shared_ptr<Files> MakeFiles(const std::vector<std::filesystem::path>& folders = {});

}  // namespace quillary::platform

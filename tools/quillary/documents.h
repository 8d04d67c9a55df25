// Where documents come from and results go.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace quillary::command_line {

/// A file that cannot be read or written; what() says which and why.
class FileError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The bytes of a file, or of standard input for "-".
std::string ReadDocument(const std::string& name);

/// The output of a command: standard output, one file, or a folder that gets a
/// file for each document.
class Output {
 public:
  /// `target` is empty for standard output. It is a folder if there is such a
  /// folder or if it ends in "/". Throws FileError if it can take only one
  /// document and there are more.
  Output(const std::string& target, std::size_t documents);

  bool IsStandardOutput() const { return target_.empty(); }

  /// The file of the result of one document; empty for standard output.
  std::filesystem::path PathOf(const std::string& document, const std::string& ending) const;

  /// Writes the result of one document; `ending` is that of a file in the folder.
  void Write(const std::string& document, const std::string& ending, const std::string& bytes) const;

 private:
  std::filesystem::path target_;
  bool folder_ = false;
};

}  // namespace quillary::command_line

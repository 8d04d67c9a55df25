#include "documents.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <system_error>

namespace quillary::command_line {
namespace {

FileError ErrorOf(const std::string& name) { return FileError(name + ": " + std::strerror(errno)); }

}  // namespace

std::string ReadDocument(const std::string& name) {
  if (name == "-") return {std::istreambuf_iterator<char>(std::cin), {}};
  if (std::filesystem::is_directory(name)) throw FileError(name + ": is a folder");
  errno = 0;
  std::ifstream file(name, std::ios::binary);
  if (!file) throw ErrorOf(name);
  std::string bytes;
  std::error_code no_size;  // a pipe has none
  const std::uintmax_t size = std::filesystem::file_size(name, no_size);
  if (!no_size) bytes.reserve(static_cast<std::size_t>(size));
  for (char block[1 << 16]; file.read(block, sizeof block), file.gcount() > 0;) {
    bytes.append(block, static_cast<std::size_t>(file.gcount()));
  }
  if (file.bad()) throw ErrorOf(name);
  return bytes;
}

Output::Output(const std::string& target, std::size_t documents) : target_(target) {
  folder_ = !target.empty() && (target.ends_with('/') || std::filesystem::is_directory(target));
  if (!target.empty() && !folder_ && documents > 1) {
    throw FileError(target + ": more than one document needs a folder");
  }
  if (folder_) {
    std::error_code error;
    std::filesystem::create_directories(target_, error);
    if (error) throw FileError(target + ": " + error.message());
  }
}

std::filesystem::path Output::PathOf(const std::string& document, const std::string& ending) const {
  std::filesystem::path path = target_;
  if (folder_) {
    const std::filesystem::path name = document == "-" ? "standard-input" : document;
    path /= name.stem();
    path += ending;
  }
  return path;
}

void Output::Write(const std::string& document, const std::string& ending, const std::string& bytes) const {
  if (IsStandardOutput()) {
    std::cout.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush();
    if (!std::cout) throw FileError("standard output cannot be written");
    return;
  }
  const std::filesystem::path path = PathOf(document, ending);
  errno = 0;
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush();
  if (!file) throw ErrorOf(path.string());
}

}  // namespace quillary::command_line

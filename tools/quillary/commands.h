// The commands of the program. Each returns the exit code: 0 done, 1 some input
// failed.
#pragma once

#include <string>
#include <vector>

#include "component/properties.h"
#include "quillary/encodings.h"

namespace quillary::command_line {

/// What a page is made of, and how much of it is wanted.
enum class Kind { Page, Fragment, Raw, Header, PlainInput };

struct ToHtml {
  std::vector<std::string> documents;
  std::string output;
  Kind kind = Kind::Page;
  Encoding encoding = Encoding::Ascii;
  bool trace = false;
  std::string image_folder;  // of the picture files; empty for one beside each page
  component::Properties properties;
};

struct ToText {
  std::vector<std::string> documents;
  std::string output;
  Encoding encoding = Encoding::Utf8;
};

struct ToRtf {
  std::vector<std::string> documents;
  std::string output;
  bool raw_input = false;  // the page goes in as it is, each byte as its Windows-1252 character
  bool trace = false;
  bool fetch = false;        // pictures that are on the web are downloaded
  std::string image_folder;  // of pictures and style sheets; empty for that of the page
  component::Properties properties;
};

int Run(const ToHtml& command);
int Run(const ToText& command);
int Run(const ToRtf& command);

}  // namespace quillary::command_line

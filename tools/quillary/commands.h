// The commands of the program. Each returns the exit code: 0 done, 1 some input
// failed.
#pragma once

#include <string>
#include <vector>

#include "component/properties.h"
#include "encodings.h"

namespace quillary::command_line {

/// What a page is made of, and how much of it is wanted.
enum class Kind { Page, Fragment, Raw, Header, PlainInput };

struct ToHtml {
  std::vector<std::string> documents;
  std::string output;
  Kind kind = Kind::Page;
  Encoding encoding = Encoding::Ascii;
  bool trace = false;
  component::Properties properties;
};

struct ToText {
  std::vector<std::string> documents;
  std::string output;
  Encoding encoding = Encoding::Utf8;
};

int Run(const ToHtml& command);
int Run(const ToText& command);

}  // namespace quillary::command_line

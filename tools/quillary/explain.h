// The rules that fire on a document.
#pragma once

#include <string>

#include "component/properties.h"

namespace quillary::command_line {

struct Explain {
  std::string document;
  bool json = false;
  component::Properties properties;
};

int Run(const Explain& command);

}  // namespace quillary::command_line

// Cases of the rich text control: RTF in, canonical form or plain text out.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "text/text.h"

namespace quillary::platform {

/// RTF is given as bytes of Windows-1252; what comes back is UTF-8.
std::string Canonical(const Text& rtf);
std::string Canonical(std::string_view rtf);
std::string Plain(std::string_view rtf);

/// What stands between the header of the canonical form and its end.
std::string Body(std::string_view rtf);
std::string Header(std::string_view rtf);

/// A document with two Western fonts, Symbol and Wingdings, and three colours.
std::string Document(std::string_view body);

struct Case {
  const char* what;
  std::string rtf;
  std::string expected;
};

/// The body of each, which also comes back when it is read again.
void CheckBodies(const std::vector<Case>& cases);
void CheckTexts(const std::vector<Case>& cases);

}  // namespace quillary::platform

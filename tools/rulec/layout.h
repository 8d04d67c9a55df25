// The layout of rule files.
#pragma once

#include <string>
#include <string_view>

namespace quillary::rulec {

/// The rule file with every line indented by the blocks it stands in and its
/// words one space apart. Words, literals and comments stay as they are
/// written; of blank lines in a row one is left. Throws Malformed for a line
/// that cannot be cut into words.
std::string LaidOut(std::string_view source);

}  // namespace quillary::rulec

// The C++ that rulec writes.
#pragma once

#include <string>
#include <vector>

#include "expand.h"

namespace quillary::rulec {

/// `name` is the file's path as diagnostics show it, "src/links/foo.rules".
std::string EmitTables(const std::vector<FlatChain>& chains, const std::string& name);
std::string EmitHeader(const std::vector<FlatChain>& chains, const std::string& name);
/// The sentinels among the names as constants.
std::string EmitSentinels(const Names& names);

}  // namespace quillary::rulec

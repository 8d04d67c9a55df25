// One document after the other.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "documents.h"

namespace quillary::command_line {

/// Says words about a document on standard error.
void Say(const std::string& document, const std::string& words);

/// Runs `convert` for each document; what fails is said, and the next one
/// follows. Returns the exit code: 0 done, 1 some document failed.
int ForEach(const std::vector<std::string>& documents,
            const std::function<void(const std::string& document)>& convert);

}  // namespace quillary::command_line

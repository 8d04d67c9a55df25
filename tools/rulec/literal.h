// Literals: visible spaces and line ends, characters by number, names and
// placeholders.
#pragma once

#include <set>
#include <string>

#include "rule_file.h"

namespace quillary::rulec {

/// The names a literal may use; the placeholders that are in force where it
/// stands, and all those that the file uses anywhere.
struct Scope {
  const Names& names;
  std::set<std::string> placeholders;
  std::set<std::string> elsewhere;
  std::set<std::string>* used = nullptr;  // takes up the names that are used
};

/// Throws Malformed.
Literal ReadLiteral(const std::string& source, std::size_t line, const Scope& scope);

/// The literal with the values put in.
Text Fill(const Literal& literal, const std::map<std::string, Text>& values);

}  // namespace quillary::rulec

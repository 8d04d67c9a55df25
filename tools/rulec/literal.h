// Literals: visible blanks, line ends, sentinels and placeholders.
#pragma once

#include <set>
#include <string>

#include "rule_file.h"

namespace quillary::rulec {

/// The names a literal may use: the placeholders that are in force where it
/// stands, and all those that the file uses anywhere.
struct Scope {
  const Sentinels& sentinels;
  std::set<std::string> placeholders;
  std::set<std::string> elsewhere;
};

/// Throws Malformed.
Literal ReadLiteral(const std::string& source, std::size_t line, const Scope& scope);

/// The literal with the values put in.
Text Fill(const Literal& literal, const std::map<std::string, Text>& values);

}  // namespace quillary::rulec

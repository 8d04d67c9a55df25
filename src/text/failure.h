// What can go wrong inside a conversion. A Failure is a failing statement: the
// stages that skip such statements wrap them in Attempt, elsewhere it travels
// to the nearest one. A LimitReached is no failing statement: it ends the
// conversion and reaches the host.
#pragma once

#include <cstdint>
#include <exception>
#include <string>

namespace quillary {

class Failure : public std::exception {
 public:
  enum class Kind { Overflow, Argument, Subscript, Type, Raised };

  explicit Failure(Kind kind) : kind_(kind) {}
  Failure(Kind kind, std::uint32_t code, std::string source, std::string description)
      : kind_(kind), code_(code), source_(std::move(source)), description_(std::move(description)) {}

  Kind kind() const { return kind_; }
  /// Only a raised failure has a code, a source and a description.
  std::uint32_t code() const { return code_; }
  const std::string& source() const { return source_; }
  const std::string& description() const { return description_; }

  /// The kind in one word: "overflow", "argument", "subscript", "type", "raised".
  const char* name() const;
  const char* what() const noexcept override { return description_.empty() ? name() : description_.c_str(); }

 private:
  Kind kind_;
  std::uint32_t code_ = 0;
  std::string source_;
  std::string description_;
};

/// Ends a conversion cleanly. Attempt never catches it.
class LimitReached : public std::exception {
 public:
  enum class Limit { Input, Growth, Nesting, Pictures };

  explicit LimitReached(Limit limit) : limit_(limit) {}
  Limit limit() const { return limit_; }
  const char* what() const noexcept override;

 private:
  Limit limit_;
};

/// Runs a statement; a Failure in it skips the rest of the statement. Returns
/// whether the statement came to its end.
template <class Statement>
bool Attempt(Statement&& statement) {
  try {
    statement();
    return true;
  } catch (const Failure&) {
    return false;
  }
}

}  // namespace quillary

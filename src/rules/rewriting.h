// A text under rewriting. It answers "does this text hold that literal" from
// an index of what occurs in it before it searches, so that a rule that cannot
// match costs next to nothing.
#pragma once

#include "text/text.h"

namespace quillary {
struct Apartment;
}

namespace quillary::rules {

class Rewriting {
 public:
  /// `apartment` travels with the text for the scans inside a chain; the rules
  /// themselves never look at it. It may be null and must outlive the object.
  explicit Rewriting(Text text, Apartment* apartment = nullptr)
      : text_(std::move(text)), apartment_(apartment) {}

  const Text& text() const { return text_; }
  Apartment& apartment() { return *apartment_; }

  /// Puts a text that was changed by hand in place of the old one.
  void Assign(Text text) { text_ = std::move(text); }
  /// The text, which leaves the object empty.
  Text Take() { return std::move(text_); }

  bool Holds(TextView find, Compare mode) { return quillary::Holds(text_, find, mode); }
  /// As ReplaceIn on the text. Returns whether anything was replaced.
  bool Replace(TextView find, TextView with, Compare mode, std::int32_t limit = -1) {
    return ReplaceIn(text_, find, with, mode, limit);
  }

 private:
  Text text_;
  Apartment* apartment_;
};

}  // namespace quillary::rules

// The footnotes of an RTF text: each stands in the body at its place, in brackets.
#pragma once

#include <cstdint>

#include "platform/rich_text/reader/body.h"
#include "platform/rich_text/reader/groups.h"
#include "platform/rich_text/reader/text_decoder.h"

namespace quillary::platform::rtf {

class Footnotes {
 public:
  Footnotes(Groups& groups, Body& body, TextDecoder& text) : groups_(groups), body_(body), text_(text) {}

  /// The deepest group becomes a footnote if it is text.
  void Begin();
  /// The group of a footnote was closed.
  void End();
  /// Adds the number of a footnote, in the text or in front of the note.
  void AddNumber();

 private:
  void AddBracket(TextView bracket);

  Groups& groups_;
  Body& body_;
  TextDecoder& text_;
  std::int32_t count_ = 0;
};

}  // namespace quillary::platform::rtf

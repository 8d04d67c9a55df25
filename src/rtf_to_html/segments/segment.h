// One segment on its way through the stages of its translation.
#pragma once

#include <cstdint>

#include "apartment/rtf_to_html_state.h"
#include "text/text.h"

namespace quillary::modQuillary {

/// One segment on its way.
struct Segment {
  explicit Segment(Text& text) : segment(text) {}

  Text& segment;
  Text head;                 // the control words, up to the first space
  Text body;                 // the rest: document text and the words in it
  Text opening;              // HTML ahead of the font tag
  Text closing;              // HTML after the font tag
  Text attributes;           // of the font tag: FACE=, SIZE= and COLOR=, each with a space after
  std::int16_t splitAt = 0;  // where the head ends, 0 if there is no space
  bool hadFontWord = false;  // a font, size or colour word of the body was replaced
};

/// Whether the page is a fragment without font faces and sizes.
inline bool WithoutFonts(const RtfToHtmlState& state) { return state.BodyOnly && !state.BodyOnlyFonts; }

}  // namespace quillary::modQuillary

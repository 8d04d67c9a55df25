// The words that end lines, paragraphs, cells and rows of the body.
#pragma once

#include "platform/rich_text/reader/body.h"
#include "platform/rich_text/reader/text_decoder.h"
#include "platform/rich_text/reader/tokens.h"

namespace quillary::platform::rtf {

/// Takes such a word or one of a row definition; does nothing for any other.
void ReadBreak(const Token& token, TextDecoder& text, Body& body);

}  // namespace quillary::platform::rtf

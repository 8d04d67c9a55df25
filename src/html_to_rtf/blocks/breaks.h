// Breaks between paragraphs.
#pragma once

#include "apartment/html_to_rtf_state.h"
#include "text/text.h"

namespace quillary::HTMLRTFConverter {

/// Ends a paragraph. The break in front of an item ("<LI>") has a space after it.
void EmitBreak(HtmlToRtfState& state, TextView tag);

/// Inside a table, the words that every paragraph of it needs.
void AppendTableWords(HtmlToRtfState& state);

}  // namespace quillary::HTMLRTFConverter

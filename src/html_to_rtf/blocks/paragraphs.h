// Paragraphs, block quotes and rules. When a break is owed is the delicate part: it
// depends on whether there is text on the line, on tables and on lists.
#pragma once

#include "apartment/apartment.h"
#include "text/text.h"

namespace quillary::HTMLRTFConverter {

/// The style of a paragraph is handled as a span around it. Throws as OpenSpan, with the
/// entry of ParaSpans pushed.
void OpenParagraph(Apartment& apartment, TextView tag);

/// Inside a table the break is only owed, and written if more text follows. Throws Failure
/// (subscript) if no paragraph is open; nothing is written then.
void CloseParagraph(HtmlToRtfState& state, TextView tag);

void OpenBlockquote(HtmlToRtfState& state);
void CloseBlockquote(HtmlToRtfState& state);

/// A rule is a table of one coloured cell, and nothing within tables. Throws Failure
/// (overflow) for a height beyond 16 bits.
void DrawRule(Apartment& apartment, TextView tag);

/// Whole-page stage: DIV tags inside tables would break the paragraphs of a cell, so they
/// become P tags with a word that says so. Throws Failure (argument) at an element that
/// nothing closes; what was changed by then stays.
void ConvertTableDivs(Text& page);

}  // namespace quillary::HTMLRTFConverter

// The colours of the document and of the page.
#pragma once

#include "apartment/rtf_to_html_state.h"
#include "text/text.h"

namespace quillary::modQuillary {

/// Reads the colour table of `text`, the first part of a document, into
/// ColourCount and ColourTable, and sets BodyStart to its end. A bad number
/// leaves a gap in its colour and is no failure.
void ReadColourTable(RtfToHtmlState& state, TextView text);

/// "red12\green34\blue56" as "#0c2238".
Text ConvertColourEntry(TextView entry);

/// Turns a page colour, which may be a name, a number with blue in its high
/// byte, a system colour number or digits, into six hexadecimal digits. Leaves
/// it empty when it held only blanks.
void NormaliseColour(Text& colour);

}  // namespace quillary::modQuillary

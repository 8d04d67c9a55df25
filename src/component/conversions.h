// The conversions after the public class. None of them has a trap of its own:
// a failure of the rich text control or of the HTML cleaner goes to the host.
#pragma once

#include "apartment/apartment.h"
#include "component/properties.h"
#include "text/text.h"

namespace quillary::component {

Text ConvertRawHtml(Apartment& apartment, Properties& properties);
Text ConvertRTFPlain(Apartment& apartment, Properties& properties);
Text ConvertPlainHTML(Apartment& apartment, Properties& properties);
Text ConvertRTFHeader(Apartment& apartment, Properties& properties);
Text ConvertRTF(Apartment& apartment, Properties& properties);
Text ConvertNoBody(Apartment& apartment, Properties& properties);
Text ConvertHTML2RTF(Apartment& apartment, Properties& properties);

/// Passes RTF through the rich text control, which gives it back in its
/// canonical form. Throws Failure (raised) if the control refuses it.
void RichTextRoundTrip(Apartment& apartment, Text& rtf);

/// Passes HTML_Text through the HTML cleaner, if the properties ask for it, and
/// finishes what the cleaner made. Gives HTML_Text as it stands otherwise.
Text TidyOutput(Apartment& apartment, const Properties& properties);

}  // namespace quillary::component

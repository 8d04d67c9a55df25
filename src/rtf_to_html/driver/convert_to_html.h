// The driver of the RTF to HTML direction.
#pragma once

#include "apartment/apartment.h"
#include "text/text.h"

namespace quillary::modQuillary {

/// What a conversion is given. All texts are the caller's own: the driver empties
/// `source`, and leaves in `colour` the six digits that it used.
struct ConversionTexts {
  Text& source;
  Text& title;
  Text& colour;
  Text& generator;
  Text& links;
  Text& debug;
  Text& convert_images;
  Text& image_folder;
  Text& image_format;
  Text& image_name;
  Text& use_span_tags;
  Text& use_font_tags;
  /// "yes" leaves out the document shell, "yes2" keeps the fonts of such a
  /// fragment too; anything else becomes "no".
  Text& body_mode;
};

/// Turns the RTF in `texts.source` into a page. Each step of the sequence runs
/// under its own guard: a step that fails leaves the page as it stood. Throws
/// LimitReached for a document that is too long or grows too much.
Text ConvertToHtml(Apartment& apartment, ConversionTexts texts);

/// Writes the debug dump. A dump that cannot be written gives a message, and no
/// failure.
void WriteDebugDump(Apartment& apartment, TextView text);

}  // namespace quillary::modQuillary

// Hexadecimal escapes: what the byte behind \' means, by the font's charset
// and by the language in force.
#pragma once

#include "apartment/apartment.h"
#include "text/text.h"

namespace quillary::modQuillary {

/// `text` with its escapes decoded for the language mode, the language words of
/// `head` and, in a document with foreign charsets, the font that `head` sets.
/// In a document of Western fonts they stay, but for Turkish and Greek.
/// Throws Failure (raised) if a foreign charset finds no decoder.
Text DecodeHexEscapes(Apartment& apartment, TextView text, TextView head);

/// `text` with the Western map applied, its escapes parted from the font and
/// size words in front of them.
Text MapWesternBytes(TextView text);

/// The stage of a segment: hides escaped escapes, decodes runs in foreign fonts
/// and sends the rest through the map of the language. A statement that fails is
/// skipped.
void SegmentHexEscapes(Apartment& apartment, Text& body, TextView head);

}  // namespace quillary::modQuillary

// The spelling of a page that the HTML to RTF rules get right.
#pragma once

#include "text/text.h"

namespace quillary::page_reader {

/// Spells a page, a well-formed text. In its text every character beyond ASCII
/// and every reference becomes a decimal reference, two for a character beyond
/// U+FFFF: one for each surrogate. Only a few names stay: those of the characters
/// that would be markup, of the no-break space, and of what the rules write
/// better than the character. A "&#" that opens no reference becomes "&amp;#".
/// Tags, comments, scripts and style sheets stay as they are, but for control
/// characters, which go everywhere. A "<" that opens no markup becomes "&lt;", and
/// markup that the page leaves open without any ">" goes. A page spelled so stays as
/// it is.
Text SpellPage(Text page);

/// The same for a page whose units are bytes that the rules decode: only its
/// references are spelled, and every unit beyond ASCII and control character stays.
Text SpellReferences(TextView page);

}  // namespace quillary::page_reader

// The style sheets of a page: taken out of it, read into StyleSheets, and written into its
// tags as FONT tags, so that the parser of tags needs to know nothing of them. This is no
// general reader of style sheets: a selector is a tag, a class or an identifier, and
// declarations are found by searching for their names.
#pragma once

#include "apartment/apartment.h"
#include "text/text.h"

namespace quillary::stylesheet {

/// Takes comments and STYLE elements out of the page.
void StripStyleBlocks(Text& text);

/// Reads the first STYLE element of the page and the sheets that it links to into
/// StyleSheets, whose entry 0 must be there. A linked sheet is looked for in `folder` and
/// reads as empty if it does not lie in it. Throws Failure (overflow) for a size that is too
/// large, LimitReached for too many links.
void CollectStyleSheets(Apartment& apartment, TextView text, TextView folder);

/// Reads the rules of a sheet into the last entry of StyleSheets. What is read goes from the
/// text. Throws Failure (overflow) for a size that is too large.
void ParseStyleRules(Apartment& apartment, Text& text);

/// Reads the declarations of one selector into the last entry of StyleSheets. Throws as above.
void AddStyleRule(Apartment& apartment, TextView selector, TextView declarations);

/// The bytes of a file, a unit for each; empty where it cannot be read.
Text ReadWholeFile(Apartment& apartment, TextView path);

/// Writes all rules of StyleSheets into the tags of the page. Throws LimitReached where the
/// page grows too much.
void ApplyStyleRules(Apartment& apartment, Text& page);

/// What stands in an element becomes the text of a FONT element, for each tag that holds the
/// value and has the attribute, CLASS or ID. Throws LimitReached.
void WrapByAttribute(Apartment& apartment, Text& page, TextView value, TextView font_tag, TextView attribute);

/// The same for each tag that a selector names, which may have a class after "." or an
/// identifier after "#".
void WrapTagRule(Apartment& apartment, Text& page, TextView selector, TextView font_tag);

/// Gives the ordered lists as deep as the selector counts "OL" their TYPE attribute.
void ApplyListStyle(Text& page, TextView selector, TextView type_attribute);

/// Turns the style and list definitions of a page saved by a word processor into FONT tags
/// and paragraphs with bullets and numbers.
void ReadWordDefinitions(Text& page);

}  // namespace quillary::stylesheet

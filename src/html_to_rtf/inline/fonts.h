// FONT tags. Every one writes a font word; size and colour stand in each run of text.
#pragma once

#include "apartment/apartment.h"
#include "text/text.h"

namespace quillary::HTMLRTFConverter {

/// Puts a level on FontStack with what the tag, in upper case, says. Throws Failure
/// (type, overflow) for a size that is no number or too large; the level stays.
void OpenFont(Apartment& apartment, TextView tag);

/// Takes the top level off, whatever put it there; the base level stays.
void CloseFont(HtmlToRtfState& state);

/// A level with font, size and colour of the one below.
FontLevel& PushFontLevel(HtmlToRtfState& state);

/// Puts a face in force and writes its font word.
void UseFace(HtmlToRtfState& state, TextView face);

/// Whole-page stage: of FONT tags that stand one after the other and are the same, the
/// first stays. The closing tags stay all.
void DropRepeatedFontTags(Text& page);

}  // namespace quillary::HTMLRTFConverter

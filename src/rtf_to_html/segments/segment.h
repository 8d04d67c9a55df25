// The stages of the translation of a segment, and what they share.
#pragma once

#include <cstdint>

#include "apartment/apartment.h"
#include "rules/rewriting.h"
#include "text/text.h"

namespace quillary::modQuillary {

/// One segment on its way.
struct Segment {
  explicit Segment(Text& text) : segment(text) {}

  Text& segment;
  Text head;                 // the control words, up to the first blank
  Text body;                 // the rest: document text and the words in it
  Text opening;              // HTML ahead of the font tag
  Text closing;              // HTML behind the font tag
  Text attributes;           // of the font tag: FACE=, SIZE= and COLOR=, each with a blank behind
  std::int16_t splitAt = 0;  // where the head ends, 0 if there is no blank
  bool hadFontWord = false;  // a font, size or colour word of the body was replaced
};

/// Where a segment goes from its entry.
enum class Road : std::uint8_t {
  Dropped,  // nowhere: it leaves no trace
  Head,     // straight to its head words, for want of a body
  Body      // through the words of the body first
};

/// Repairs the segment, cuts it into head and body, and takes the brace groups
/// out of the body.
Road EnterSegment(Apartment& apartment, Segment& segment);

/// Takes the brace groups out of the body: groups within groups and
/// destinations go, of simple groups the text stays.
void RemoveBraceGroups(const RtfToHtmlState& state, Text& body);

/// Replaces the control words that stand in running text. From here to the
/// output the body is a text under rewriting, so that one index serves all.
void ReplaceBodyWords(RtfToHtmlState& state, rules::Rewriting& body, TextView head);

/// Reads the control words of the head into opening, closing and attributes.
void ReadHeadWords(RtfToHtmlState& state, Segment& segment, rules::Rewriting& body);

/// Ends a centred block that is open if the segment begins a new paragraph.
void CloseCentre(RtfToHtmlState& state, TextView segment);

/// Replaces all words that are still in the body and mean something.
void ReplaceRemainingWords(RtfToHtmlState& state, Segment& segment, rules::Rewriting& body);

/// The words of size, font, colour and highlight in the body.
void ReplaceFontWords(RtfToHtmlState& state, Segment& segment, rules::Rewriting& body);

/// Of these, the font words.
void ReplaceFaces(RtfToHtmlState& state, Segment& segment, rules::Rewriting& body);

/// Rows and cells in the body.
void ReplaceTableWords(rules::Rewriting& body);

/// Drops the control words that nobody wanted, writes the run to HtmlOut and
/// takes the running values back from it.
void WriteSegment(Apartment& apartment, Segment& segment, Text body);

/// Whether the page is a fragment without font faces and sizes.
inline bool WithoutFonts(const RtfToHtmlState& state) { return state.BodyOnly && !state.BodyOnlyFonts; }

}  // namespace quillary::modQuillary

// The road of a segment through its stages.
#include "rtf_to_html/segments/translate_segment.h"

#include "rtf_to_html/segments/hex_escapes.h"
#include "rtf_to_html/segments/segment.h"
#include "rtf_to_html/segments/segment_body_words.h"
#include "rtf_to_html/segments/segment_entry.h"
#include "rtf_to_html/segments/segment_head_words.h"
#include "rtf_to_html/segments/segment_output.h"
#include "rtf_to_html/segments/segment_remaining_words.h"

namespace quillary::modQuillary {

void TranslateSegment(Apartment& apartment, Text& text) {
  RtfToHtmlState& state = apartment.rtf_to_html;
  if (state.SegmentIndex <= 1)
    state.WrittenColour = state.WrittenSize = state.WrittenFace = {};  // a new page
  Segment segment(text);
  const Road road = EnterSegment(apartment, segment);
  if (road == Road::Dropped) return;
  if (road == Road::Body) SegmentHexEscapes(apartment, segment.body, segment.head);
  rules::Rewriting body = StartRewriting(apartment, std::move(segment.body));
  if (road == Road::Body) ReplaceBodyWords(state, body, segment.head);
  ReadHeadWords(state, segment, body);
  ReplaceRemainingWords(state, segment, body);
  WriteSegment(apartment, segment, body.Take());
}

}  // namespace quillary::modQuillary

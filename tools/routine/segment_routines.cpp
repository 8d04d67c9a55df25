// The translation of a segment, whole and stage by stage.
#include "registry.h"
#include "rtf_to_html/segments/segment.h"
#include "rtf_to_html/segments/segment_body_words.h"
#include "rtf_to_html/segments/segment_entry.h"
#include "rtf_to_html/segments/segment_head_words.h"
#include "rtf_to_html/segments/segment_output.h"
#include "rtf_to_html/segments/segment_remaining_words.h"
#include "rtf_to_html/segments/segment_tables.h"
#include "rtf_to_html/segments/translate_segment.h"

namespace quillary::routine {

using namespace modQuillary;

void AddSegmentRoutines(Registry& registry) {
  registry.Add("TranslateSegment", {Kind::Text},
               [](Call& call) { TranslateSegment(call.apartment(), call.text(0)); });
  registry.Add("SegmentEntry", {Kind::Text}, [](Call& call) {
    Segment segment(call.text(0));
    const Road road = EnterSegment(call.apartment(), segment);
    call.result = {
        {"head", ToJson(segment.head)}, {"body", ToJson(segment.body)}, {"dropped", road == Road::Dropped}};
  });
  registry.Add("SegmentBodyWords", {Kind::Text, Kind::Text}, [](Call& call) {
    rules::Rewriting body = StartRewriting(call.apartment(), call.text(0));
    ReplaceBodyWords(call.state(), body, call.text(1));
    call.result = ToJson(body.text());
  });
  registry.Add("SegmentHeadAndOutput", {Kind::Text, Kind::Text, Kind::Text}, [](Call& call) {
    Segment segment(call.text(0));
    segment.head = call.text(1);
    rules::Rewriting body = StartRewriting(call.apartment(), call.text(2));
    ReadHeadWords(call.state(), segment, body);
    ReplaceRemainingWords(call.state(), segment, body);
    WriteSegment(call.apartment(), segment, body.Take());
  });
  registry.Add("MarkCellWidths", {Kind::Text},
               [](Call& call) { call.result = ToJson(MarkCellWidths(call.text(0))); });
}

}  // namespace quillary::routine

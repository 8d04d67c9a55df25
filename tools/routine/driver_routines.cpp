// The driver, the readers of a document's tables, and the rewrite frame.
#include "registry.h"
#include "rtf_to_html/document_tables/colour_table.h"
#include "rtf_to_html/document_tables/font_table.h"
#include "rtf_to_html/driver/convert_to_html.h"
#include "rtf_to_html/rewriting/pictures.h"
#include "rtf_to_html/rewriting/rewrite_rtf.h"
#include "rtf_to_html/rewriting/split_segments.h"

namespace quillary::routine {
namespace {

void AddDriver(Registry& registry) {
  registry.Add("ConvertToHtml", std::vector<Kind>(13, Kind::Text), [](Call& call) {
    call.result = ToJson(TextView(modQuillary::ConvertToHtml(
        call.apartment(),
        {call.text(0), call.text(1), call.text(2), call.text(3), call.text(4), call.text(5), call.text(6),
         call.text(7), call.text(8), call.text(9), call.text(10), call.text(11), call.text(12)})));
  });
  registry.Add("WriteDebugDump", {Kind::Text},
               [](Call& call) { modQuillary::WriteDebugDump(call.apartment(), call.text(0)); });
}

void AddTables(Registry& registry) {
  registry.Add("ReadColourTable", {Kind::Text},
               [](Call& call) { modQuillary::ReadColourTable(call.state(), call.text(0)); });
  registry.Add("ConvertColourEntry", {Kind::Text}, [](Call& call) {
    call.result = ToJson(TextView(modQuillary::ConvertColourEntry(call.text(0))));
  });
  registry.Add("NormaliseColour", {Kind::Text}, [](Call& call) {
    modQuillary::NormaliseColour(call.text(0));
    call.result = ToJson(TextView(call.text(0)));
  });
  registry.Add("FillSizeTable", {}, [](Call& call) { modQuillary::FillSizeTable(call.state()); });
  registry.Add("ReadFontTable", {Kind::Text},
               [](Call& call) { modQuillary::ReadFontTable(call.state(), call.text(0)); });
}

void AddRewriteFrame(Registry& registry) {
  registry.Add("RewriteRtf", {Kind::Text},
               [](Call& call) { modQuillary::RewriteRtf(call.apartment(), call.text(0)); });
  registry.Add("ReplacePictures", {Kind::Text}, [](Call& call) {
    modQuillary::ReplacePictures(call.apartment(), call.text(0));
    call.result = ToJson(TextView(call.text(0)));
  });
  registry.Add("ApplyCaps", {Kind::Text},
               [](Call& call) { call.result = ToJson(TextView(modQuillary::ApplyCaps(call.text(0)))); });
  registry.Add("SplitSegments", {Kind::Text}, [](Call& call) {
    Json segments = Json::array();
    modQuillary::SplitSegments(call.apartment(), call.text(0),
                               [&](Text& segment) { segments.push_back(ToJson(TextView(segment))); });
    call.result = std::move(segments);
  });
}

}  // namespace

void AddDriverRoutines(Registry& registry) {
  AddDriver(registry);
  AddTables(registry);
  AddRewriteFrame(registry);
}

}  // namespace quillary::routine

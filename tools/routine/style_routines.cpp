// Style sheets, charsets, floats and pictures of the HTML to RTF direction, every operation alone.
#include "html_to_rtf/charsets/charsets.h"
#include "html_to_rtf/floats/floats.h"
#include "html_to_rtf/images/images.h"
#include "registry.h"
#include "stylesheet/style_sheets.h"

namespace quillary::routine {

using namespace HTMLRTFConverter;
using namespace stylesheet;

namespace {

// Routines that change a text in place give it as the result too.
void AddInPlace(Registry& registry, const char* name, void (*routine)(Text&)) {
  registry.Add(name, {Kind::Text}, [routine](Call& call) {
    routine(call.text(0));
    call.result = ToJson(call.text(0));
  });
}

}  // namespace

void AddStyleRoutines(Registry& registry) {
  AddInPlace(registry, "StripStyleBlocks", StripStyleBlocks);
  AddInPlace(registry, "ReadWordDefinitions", ReadWordDefinitions);
  AddInPlace(registry, "FloatsToTables", FloatsToTables);
  AddInPlace(registry, "MarkArabicRuns", MarkArabicRuns);
  AddInPlace(registry, "ConvertIso2022Jp", ConvertIso2022Jp);
  AddInPlace(registry, "DecodeGb2312Run", DecodeGb2312Run);
  registry.Add("DetectCharset", {Kind::Text},
               [](Call& call) { call.result = DetectCharset(call.html_state(), call.text(0)); });
  registry.Add("StyleWidth", {Kind::Text},
               [](Call& call) { call.result = ToJson(StyleWidth(call.text(0))); });
  registry.Add("CollectStyleSheets", {Kind::Text, Kind::Text},
               [](Call& call) { CollectStyleSheets(call.apartment(), call.text(0), call.text(1)); });
  registry.Add("ParseStyleRules", {Kind::Text},
               [](Call& call) { ParseStyleRules(call.apartment(), call.text(0)); });
  registry.Add("AddStyleRule", {Kind::Text, Kind::Text},
               [](Call& call) { AddStyleRule(call.apartment(), call.text(0), call.text(1)); });
  registry.Add("ReadWholeFile", {Kind::Text},
               [](Call& call) { call.result = ToJson(ReadWholeFile(call.apartment(), call.text(0))); });
  registry.Add("ApplyStyleRules", {Kind::Text}, [](Call& call) {
    ApplyStyleRules(call.apartment(), call.text(0));
    call.result = ToJson(call.text(0));
  });
  registry.Add("WrapByAttribute", {Kind::Text, Kind::Text, Kind::Text, Kind::Text}, [](Call& call) {
    WrapByAttribute(call.apartment(), call.text(0), call.text(1), call.text(2), call.text(3));
    call.result = ToJson(call.text(0));
  });
  registry.Add("PlaceImage", {Kind::Text, Kind::Text, Kind::Text},
               [](Call& call) { PlaceImage(call.apartment(), call.text(0), call.text(1), call.text(2)); });
  registry.Add("Parse",
               {Kind::Text, Kind::Text, Kind::Integer16, Kind::Integer16, Kind::Integer16, Kind::Integer16,
                Kind::Text},
               [](Call& call) {
                 const auto number = [&](std::size_t index) {
                   return static_cast<std::int16_t>(call.integer(index));
                 };
                 call.result = platform::MakePictureExtractor()->Parse(
                     call.text(0), call.text(1), number(2), number(3), number(4), number(5), call.text(6));
               });
  registry.Add("CreateFromFile", {Kind::Text, Kind::Integer16, Kind::Integer16}, [](Call& call) {
    const auto number = [&](std::size_t index) { return static_cast<std::int16_t>(call.integer(index)); };
    call.result = ToJson(call.apartment().services.picture_creator()->CreateFromFile(
        call.text(0), number(1), number(2), 0, 0, false, u""));
  });
  registry.Add("WrapTagRule", {Kind::Text, Kind::Text, Kind::Text}, [](Call& call) {
    WrapTagRule(call.apartment(), call.text(0), call.text(1), call.text(2));
    call.result = ToJson(call.text(0));
  });
  registry.Add("ApplyListStyle", {Kind::Text, Kind::Text, Kind::Text}, [](Call& call) {
    ApplyListStyle(call.text(0), call.text(1), call.text(2));
    call.result = ToJson(call.text(0));
  });
}

}  // namespace quillary::routine

// The hexadecimal escapes, the decoder of code pages and its tables.
#include "platform/code_pages/code_pages.h"
#include "registry.h"
#include "rtf_to_html/segments/hex_escapes.h"
#include "text/failure.h"

namespace quillary::routine {
namespace {

/// A text whose units are bytes.
std::string BytesOf(TextView text) {
  std::string bytes;
  for (const char16_t unit : text) {
    if (unit > 0xFF) throw Refusal("usage");
    bytes.push_back(static_cast<char>(unit));
  }
  return bytes;
}

void AddDecoder(Registry& registry) {
  for (const int code_page : {874, 932, 936, 949, 950, 1250, 1251, 1253, 1254, 1255, 1256, 1257, 1258}) {
    const auto decode = [code_page](Call& call) {
      const auto decoder = call.apartment().services.code_page_decoder();
      call.result = ToJson(decoder->ToString(code_page, call.text(0)));
    };
    const std::string name = "ToString" + std::to_string(code_page);
    registry.Add(name, {Kind::Text}, decode);
    registry.Add("CodePageDecoder." + name, {Kind::Text}, decode);
  }
  registry.Add("DecodeBytes", {Kind::Integer32, Kind::Text}, [](Call& call) {
    call.result = ToJson(platform::DecodeBytes(call.integer(0), BytesOf(call.text(1))));
  });
}

void AddEscapes(Registry& registry) {
  registry.Add("DecodeHexEscapes", {Kind::Text, Kind::Text}, [](Call& call) {
    call.result = ToJson(modQuillary::DecodeHexEscapes(call.apartment(), call.text(0), call.text(1)));
  });
  registry.Add("MapWesternBytes", {Kind::Text},
               [](Call& call) { call.result = ToJson(modQuillary::MapWesternBytes(call.text(0))); });
  registry.Add("SegmentHexEscapes", {Kind::Text, Kind::Text}, [](Call& call) {
    modQuillary::SegmentHexEscapes(call.apartment(), call.text(0), call.text(1));
    call.result = ToJson(call.text(0));
  });
}

}  // namespace

void AddEscapeRoutines(Registry& registry) {
  AddEscapes(registry);
  AddDecoder(registry);
}

}  // namespace quillary::routine

// The driver, the readers of a document's tables, the rewrite frame and the
// conversions of the public class.
#include "component/conversions.h"
#include "component/properties.h"
#include "registry.h"
#include "rtf_to_html/document_tables/colour_table.h"
#include "rtf_to_html/document_tables/font_table.h"
#include "rtf_to_html/driver/convert_to_html.h"
#include "rtf_to_html/rewriting/pictures.h"
#include "rtf_to_html/rewriting/rewrite_rtf.h"
#include "rtf_to_html/rewriting/split_segments.h"

namespace quillary::routine {
namespace {

using component::AllProperties;
using component::Properties;
using component::PropertyName;

Properties NewProperties() {
  Properties properties;
  component::Class_InitProperties(properties);
  return properties;
}

Properties PropertiesFromJson(const Json& bag) {
  Properties properties = NewProperties();
  for (const auto& [key, value] : bag.items()) {
    const PropertyName* found = nullptr;
    for (const PropertyName& property : AllProperties()) {
      if (key == property.name) found = &property;
    }
    if (found == nullptr || !value.is_string()) throw Refusal("usage");
    properties.*(found->text) = ToText(value);
  }
  return properties;
}

// The properties that differ between the two.
Json Difference(const Properties& before, const Properties& after) {
  Json changed = Json::object();
  for (const PropertyName& property : AllProperties()) {
    const Text& value = after.*(property.text);
    if (value != before.*(property.text)) changed[property.name] = ToJson(TextView(value));
  }
  return changed;
}

// Runs an operation of the public class on the properties of a call, and puts
// those that it changed in their place.
template <class Operation>
void WithProperties(Call& call, Operation&& operation) {
  Properties properties = PropertiesFromJson(call.raw(0));
  const Properties before = properties;
  try {
    operation(properties);
  } catch (...) {
    call.raw(0) = Difference(before, properties);
    throw;
  }
  call.raw(0) = Difference(before, properties);
}

using Conversion = Text (*)(Apartment&, Properties&);

void AddConversion(Registry& registry, const char* name, Conversion conversion) {
  registry.Add(name, {Kind::Record}, [conversion](Call& call) {
    WithProperties(call, [&](Properties& properties) {
      call.result = ToJson(TextView(conversion(call.apartment(), properties)));
    });
  });
}

void AddConversions(Registry& registry) {
  AddConversion(registry, "ConvertRTF", component::ConvertRTF);
  AddConversion(registry, "ConvertNoBody", component::ConvertNoBody);
  AddConversion(registry, "ConvertRawHtml", component::ConvertRawHtml);
  AddConversion(registry, "ConvertPlainHTML", component::ConvertPlainHTML);
  AddConversion(registry, "ConvertRTFPlain", component::ConvertRTFPlain);
  AddConversion(registry, "ConvertRTFHeader", component::ConvertRTFHeader);
  AddConversion(registry, "ConvertHTML2RTF", component::ConvertHTML2RTF);
  registry.Add("TidyOutput", {Kind::Record}, [](Call& call) {
    WithProperties(call, [&](Properties& properties) {
      call.result = ToJson(TextView(component::TidyOutput(call.apartment(), properties)));
    });
  });
  registry.Add("RichTextRoundTrip", {Kind::Text}, [](Call& call) {
    component::RichTextRoundTrip(call.apartment(), call.text(0));
    call.result = ToJson(TextView(call.text(0)));
  });
  registry.Add("Class_InitProperties", {}, [](Call& call) {
    const Properties properties = NewProperties();
    call.result = Json::object();
    for (const PropertyName& property : AllProperties()) {
      call.result[property.name] = ToJson(TextView(properties.*(property.text)));
    }
  });
}

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
  AddConversions(registry);
  AddDriver(registry);
  AddTables(registry);
  AddRewriteFrame(registry);
}

}  // namespace quillary::routine

// The public class: conversions, persistence, files, object safety, and the small classes beside it.
#include <algorithm>
#include <cstdio>
#include <optional>

#include "component/bas_safe_ctl.h"
#include "component/cls_string_analyser.h"
#include "component/cls_strings.h"
#include "component/conversions.h"
#include "component/file_to_string.h"
#include "component/persistence.h"
#include "component/properties.h"
#include "component/word.h"
#include "registry.h"
#include "text/encodings.h"

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
}

// A property bag as an object of texts. "failAfter" makes it fail after so many reads or writes.
class JsonBag final : public PropertyBag {
 public:
  explicit JsonBag(Json texts) : texts_(std::move(texts)) {
    if (const auto found = texts_.find("failAfter"); found != texts_.end()) {
      if (!found->is_number_integer()) throw Refusal("usage");
      left_ = found->get<std::int64_t>();
      texts_.erase(found);
    }
    for (const Json& text : texts_) {
      if (!text.is_string()) throw Refusal("usage");
    }
  }

  std::u16string ReadProperty(std::string_view key, std::u16string_view fallback) override {
    Count();
    const auto found = texts_.find(key);
    return found == texts_.end() ? Text(fallback) : ToText(*found);
  }
  void WriteProperty(std::string_view key, std::u16string_view value, std::u16string_view) override {
    Count();
    texts_[std::string(key)] = ToJson(value);
  }
  const Json& texts() const { return texts_; }

 private:
  void Count() {
    if (left_ && (*left_)-- <= 0) throw Failure(Failure::Kind::Raised);
  }

  Json texts_;
  std::optional<std::int64_t> left_;
};

Json AllToJson(const Properties& properties) {
  Json all = Json::object();
  for (const PropertyName& property : AllProperties()) {
    all[property.name] = ToJson(TextView(properties.*(property.text)));
  }
  return all;
}

// Both take a bag and, for an object that is not new, the properties that differ from the defaults.
void AddPersistence(Registry& registry) {
  const auto object_of = [](Call& call) {
    return call.count() > 1 ? PropertiesFromJson(call.raw(1)) : NewProperties();
  };
  registry.Add(
      "Class_ReadProperties", {Kind::Record, Kind::Record},
      [object_of](Call& call) {
        JsonBag bag(call.raw(0));
        Properties properties = object_of(call);
        component::Class_ReadProperties(properties, bag);
        call.result = AllToJson(properties);
      },
      1);
  registry.Add(
      "Class_WriteProperties", {Kind::Record, Kind::Record},
      [object_of](Call& call) {
        JsonBag bag(call.raw(0));
        component::Class_WriteProperties(object_of(call), bag);
        call.result = bag.texts();
      },
      1);
  registry.Add("Class_InitProperties", {}, [](Call& call) { call.result = AllToJson(NewProperties()); });
  registry.Add("FileToString", {Kind::Text}, [](Call& call) {
    call.result = ToJson(TextView(component::FileToString(call.apartment(), call.text(0))));
  });
}

// An interface identifier in its text form, in any case; null is none.
std::optional<server::Guid> GuidOf(const Json& value) {
  if (value.is_null()) return std::nullopt;
  if (!value.is_string()) throw Refusal("usage");
  const std::string text = value.get<std::string>();
  server::Guid guid = {};
  unsigned rest[8] = {};
  int end = 0;
  const int read = std::sscanf(text.c_str(), "{%8x-%4hx-%4hx-%2x%2x-%2x%2x%2x%2x%2x%2x}%n", &guid.first,
                               &guid.second, &guid.third, &rest[0], &rest[1], &rest[2], &rest[3], &rest[4],
                               &rest[5], &rest[6], &rest[7], &end);
  if (read != 11 || static_cast<std::size_t>(end) != text.size()) throw Refusal("usage");
  std::transform(std::begin(rest), std::end(rest), guid.rest,
                 [](unsigned byte) { return static_cast<std::uint8_t>(byte); });
  return guid;
}

void AddObjectSafety(Registry& registry) {
  registry.Add("IObjectSafety_GetInterfaceSafetyOptions", {Kind::Any, Kind::Integer32, Kind::Integer32},
               [](Call& call) {
                 const auto riid = GuidOf(call.raw(0));
                 auto supported = static_cast<std::uint32_t>(call.integer(1));
                 auto enabled = static_cast<std::uint32_t>(call.integer(2));
                 const auto put_back = [&] {
                   call.raw(1) = supported;
                   call.raw(2) = enabled;
                 };
                 try {
                   basSafeCtl::IObjectSafety_GetInterfaceSafetyOptions(riid ? &*riid : nullptr, supported,
                                                                       enabled);
                 } catch (const Failure&) {
                   put_back();
                   throw;
                 }
                 put_back();
               });
  registry.Add("IObjectSafety_SetInterfaceSafetyOptions", {Kind::Any, Kind::Integer32, Kind::Integer32},
               [](Call& call) {
                 const auto riid = GuidOf(call.raw(0));
                 basSafeCtl::IObjectSafety_SetInterfaceSafetyOptions(
                     riid ? &*riid : nullptr, static_cast<std::uint32_t>(call.integer(1)),
                     static_cast<std::uint32_t>(call.integer(2)));
               });
}

std::vector<Text> TextsOf(const Json& value) {
  if (!value.is_array()) throw Refusal("usage");
  std::vector<Text> texts;
  for (const Json& text : value) {
    if (!text.is_string()) throw Refusal("usage");
    texts.push_back(ToText(text));
  }
  return texts;
}

void AddStrings(Registry& registry) {
  const auto add = [&](const char* name, Text (*operation)(TextView)) {
    registry.Add(name, {Kind::Text},
                 [operation](Call& call) { call.result = ToJson(TextView(operation(call.text(0)))); });
  };
  add("clsStrings.ToUpperCase", component::clsStrings::ToUpperCase);
  add("clsStrings.ToLowerCase", component::clsStrings::ToLowerCase);
  add("clsStrings.Proper", component::clsStrings::Proper);
  add("clsStrings.ToGgLeCaSe", component::clsStrings::ToGgLeCaSe);
  registry.Add("clsStrings.ReplaceString", std::vector<Kind>(4, Kind::Text), [](Call& call) {
    call.result = ToJson(TextView(
        component::clsStrings::ReplaceString(call.text(0), call.text(1), call.text(2), call.text(3))));
  });
  registry.Add("clsStrings.IsCharIn", {Kind::Text, Kind::Any}, [](Call& call) {
    call.result = component::clsStrings::IsCharIn(call.text(0), TextsOf(call.raw(1)));
  });
}

// One call of PopWord: a list of its arguments, of which the last two may be missing or null.
Text PopWord(component::clsStringAnalyser& analyser, const Json& arguments) {
  if (!arguments.is_array() || arguments.empty() || arguments.size() > 3 || !arguments[0].is_string()) {
    throw Refusal("usage");
  }
  std::optional<bool> ignore_case;
  std::optional<std::vector<Text>> delimiters;
  if (arguments.size() > 1 && !arguments[1].is_null()) {
    if (!arguments[1].is_boolean()) throw Refusal("usage");
    ignore_case = arguments[1].get<bool>();
  }
  if (arguments.size() > 2 && !arguments[2].is_null()) delimiters = TextsOf(arguments[2]);
  return analyser.PopWord(ToText(arguments[0]), ignore_case, delimiters);
}

void AddWords(Registry& registry) {
  // A list of calls, each a list of arguments or the word "Restart"; the words that were popped.
  registry.Add("clsStringAnalyser.PopWord", {Kind::List}, [](Call& call) {
    component::clsStringAnalyser analyser;
    call.result = Json::array();
    for (const Json& step : call.raw(0)) {
      if (step == "Restart") {
        analyser.Restart();
      } else {
        call.result.push_back(ToJson(TextView(PopWord(analyser, step))));
      }
    }
  });
  const auto add = [&](const char* name, auto&& read) {
    registry.Add(name, {Kind::Text}, [read](Call& call) {
      component::Word word;
      word.Value(call.text(0));
      call.result = read(word);
    });
  };
  add("Word.Length", [](const component::Word& word) { return Json(word.Length()); });
  add("Word.LowerCase", [](const component::Word& word) { return ToJson(TextView(word.LowerCase())); });
  add("Word.UpperCase", [](const component::Word& word) { return ToJson(TextView(word.UpperCase())); });
  add("Word.Value", [](const component::Word& word) { return ToJson(TextView(word.Value())); });
}

}  // namespace

void AddComponentRoutines(Registry& registry) {
  AddConversions(registry);
  AddPersistence(registry);
  AddObjectSafety(registry);
  AddStrings(registry);
  AddWords(registry);
}

}  // namespace quillary::routine

// How the fields of a state stand in JSON, by the names in use. A visitor is handed every
// field: a Writer puts the wanted ones into an object, a Reader takes those that an object has.
#pragma once

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include "registry.h"

namespace quillary::routine {

inline Json ElementToJson(const Text& value) { return ToJson(TextView(value)); }
inline Json ElementToJson(std::int16_t value) { return value; }
inline Json ElementToJson(const CellFragment& value) {
  return {{"Text", ToJson(TextView(value.Text))}, {"IsCell", value.IsCell}};
}

inline void ElementFromJson(const Json& json, Text& value) {
  if (!json.is_string()) throw Refusal("usage");
  value = ToText(json);
}

inline void ElementFromJson(const Json& json, std::int16_t& value) {
  if (!json.is_number_integer()) throw Refusal("usage");
  const auto number = json.get<std::int64_t>();
  if (number < std::numeric_limits<std::int16_t>::min() ||
      number > std::numeric_limits<std::int16_t>::max()) {
    throw Refusal("overflow");
  }
  value = static_cast<std::int16_t>(number);
}

inline bool Boolean(const Json& json) {
  if (json.is_boolean()) return json.get<bool>();
  if (!json.is_number_integer()) throw Refusal("usage");
  return json != 0;
}

inline void ElementFromJson(const Json& json, CellFragment& value) {
  if (!json.is_object()) throw Refusal("usage");
  ElementFromJson(json.value("Text", Json("")), value.Text);
  value.IsCell = Boolean(json.value("IsCell", Json(false)));
}

// The records of the lists of HTML to RTF.
Json ElementToJson(const FontLevel& level);
Json ElementToJson(const ListLevel& level);
Json ElementToJson(const ParaSpan& span);
Json ElementToJson(const TableLevel& level);
Json ElementToJson(const StyleRule& rule);
Json ElementToJson(const StyleSheet& sheet);
void ElementFromJson(const Json& json, FontLevel& level);
void ElementFromJson(const Json& json, ListLevel& level);
void ElementFromJson(const Json& json, ParaSpan& span);
void ElementFromJson(const Json& json, TableLevel& level);
void ElementFromJson(const Json& json, StyleRule& rule);
void ElementFromJson(const Json& json, StyleSheet& sheet);

template <class Value>
Json ListToJson(const List<Value>& list, std::int32_t lowest) {
  if (!list.sized()) return nullptr;
  Json json = Json::array();
  for (std::int32_t i = lowest; i <= list.last_set(); ++i) json.push_back(ElementToJson(list[i]));
  return json;
}

template <class Value>
void ListFromJson(const Json& json, List<Value>& list, std::int32_t lowest) {
  list.Erase();
  if (json.is_null()) return;
  if (!json.is_array()) throw Refusal("usage");
  list.Size(static_cast<std::int32_t>(json.size()) - 1 + lowest);
  for (std::size_t i = 0; i < json.size(); ++i) {
    Value value{};
    ElementFromJson(json[i], value);
    list.Set(static_cast<std::int32_t>(i) + lowest, std::move(value));
  }
}

// The languages by the words in use.
inline constexpr std::pair<LanguageModes, const char*> kLanguages[] = {{LanguageModes::English, "english"},
                                                                       {LanguageModes::Greek, "greek"},
                                                                       {LanguageModes::Turkish, "turkish"}};

struct Writer {
  Json& fields;
  const std::vector<std::string>& names;

  bool Wanted(const char* name) const {
    return names.empty() || std::find(names.begin(), names.end(), name) != names.end();
  }
  void operator()(const char* name, const Text& value) {
    if (Wanted(name)) fields[name] = ToJson(TextView(value));
  }
  void operator()(const char* name, const rules::Rewriting& value) { (*this)(name, value.text()); }
  void operator()(const char* name, LanguageModes value) {
    for (const auto& [language, word] : kLanguages) {
      if (value == language && Wanted(name)) fields[name] = word;
    }
  }
  void YesOrNo(const char* name, bool value) {
    if (Wanted(name)) fields[name] = value ? "yes" : "no";
  }
  void operator()(const char* name, const Integer16& value) {
    if (Wanted(name)) fields[name] = static_cast<std::int16_t>(value);
  }
  void operator()(const char* name, const bool& value) {
    if (Wanted(name)) fields[name] = value;
  }
  void operator()(const char* name, const double& value) {
    if (Wanted(name)) fields[name] = value;
  }
  template <class Value>
  void operator()(const char* name, const List<Value>& value, std::int32_t lowest) {
    if (Wanted(name)) fields[name] = ListToJson(value, lowest);
  }
};

struct Reader {
  const Json& fields;
  std::size_t found = 0;

  const Json* Field(const char* name) {
    const auto field = fields.find(name);
    if (field == fields.end()) return nullptr;
    ++found;
    return &*field;
  }
  void operator()(const char* name, Text& value) {
    if (const Json* field = Field(name)) ElementFromJson(*field, value);
  }
  void operator()(const char* name, rules::Rewriting& value) {
    Text text;
    (*this)(name, text);
    value.Assign(std::move(text));
  }
  void operator()(const char* name, LanguageModes& value) {
    const Json* field = Field(name);
    if (field == nullptr) return;
    for (const auto& [language, word] : kLanguages) {
      if (*field == word) value = language;
    }
  }
  void YesOrNo(const char* name, bool& value) {
    if (const Json* field = Field(name)) value = *field == "yes";
  }
  void operator()(const char* name, Integer16& value) {
    if (const Json* field = Field(name)) {
      std::int16_t number = 0;
      ElementFromJson(*field, number);
      value = number;
    }
  }
  void operator()(const char* name, bool& value) {
    if (const Json* field = Field(name)) value = Boolean(*field);
  }
  void operator()(const char* name, double& value) {
    const Json* field = Field(name);
    if (field == nullptr) return;
    if (!field->is_number()) throw Refusal("usage");
    value = field->get<double>();
  }
  template <class Value>
  void operator()(const char* name, List<Value>& value, std::int32_t lowest) {
    if (const Json* field = Field(name)) ListFromJson(*field, value, lowest);
  }
};

/// Hands the fields of the HTML to RTF direction to a visitor.
void VisitHtmlToRtf(const HtmlToRtfState& state, Writer& writer);
void VisitHtmlToRtf(HtmlToRtfState& state, Reader& reader);

}  // namespace quillary::routine

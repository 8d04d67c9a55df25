// The state of the RTF to HTML direction by the names in use.
#include <algorithm>
#include <limits>

#include "registry.h"

namespace quillary::routine {
namespace {

Json ElementToJson(const Text& value) { return ToJson(TextView(value)); }
Json ElementToJson(std::int16_t value) { return value; }
Json ElementToJson(const CellFragment& value) {
  return {{"Text", ToJson(TextView(value.Text))}, {"IsCell", value.IsCell}};
}

void ElementFromJson(const Json& json, Text& value) {
  if (!json.is_string()) throw Refusal("usage");
  value = ToText(json);
}

void ElementFromJson(const Json& json, std::int16_t& value) {
  if (!json.is_number_integer()) throw Refusal("usage");
  const auto number = json.get<std::int64_t>();
  if (number < std::numeric_limits<std::int16_t>::min() ||
      number > std::numeric_limits<std::int16_t>::max()) {
    throw Refusal("overflow");
  }
  value = static_cast<std::int16_t>(number);
}

bool Boolean(const Json& json) {
  if (json.is_boolean()) return json.get<bool>();
  if (!json.is_number_integer()) throw Refusal("usage");
  return json != 0;
}

void ElementFromJson(const Json& json, CellFragment& value) {
  if (!json.is_object()) throw Refusal("usage");
  ElementFromJson(json.value("Text", Json("")), value.Text);
  value.IsCell = Boolean(json.value("IsCell", Json(false)));
}

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

// A list whose trailing entries were never set was sized to its count all the same.
template <class Value>
void Widen(List<Value>& list, std::int32_t upper) {
  if (!list.sized() || list.upper() >= upper) return;
  const List<Value> narrow = list;
  list.Size(upper);
  for (std::int32_t i = 0; i <= narrow.last_set(); ++i) list.Set(i, narrow[i]);
}

// Every field by its name, handed to a visitor with the lowest index of lists.
template <class State, class Visitor>
void VisitFields(State& state, Visitor&& visit) {
  visit("ConvertImages", state.ConvertImages);
  visit("ImageFolder", state.ImageFolder);
  visit("ImageFormat", state.ImageFormat);
  visit("ImageName", state.ImageName);
  visit("UseSpanTags", state.UseSpanTags);
  visit("UseFontTags", state.UseFontTags);
  visit.YesOrNo("BodyOnly", state.BodyOnly);
  visit.YesOrNo("BodyOnlyFonts", state.BodyOnlyFonts);
  visit("HtmlOut", state.HtmlOut);
  visit("LanguageMode", state.LanguageMode);
  visit.YesOrNo("EquationSeen", state.EquationSeen);
  visit.YesOrNo("ForeignCharsets", state.ForeignCharsets);
  visit.YesOrNo("CentreOpen", state.CentreOpen);
  visit.YesOrNo("ParagraphOpen", state.ParagraphOpen);
  visit.YesOrNo("IndentOpen", state.IndentOpen);
  visit.YesOrNo("ColourExplicit", state.ColourExplicit);
  visit("PendingIndent", state.PendingIndent);
  visit("CarriedIndent", state.CarriedIndent);
  visit("CurrentFace", state.CurrentFace);
  visit("CurrentSize", state.CurrentSize);
  visit("CurrentColour", state.CurrentColour);
  visit("PictureCounter", state.PictureCounter);
  visit("CurrentFontNumber", state.CurrentFontNumber);
  visit("ControlSegments", state.ControlSegments);
  visit("LongSegments", state.LongSegments);
  visit("SegmentIndex", state.SegmentIndex);
  visit("ColourCount", state.ColourCount);
  visit("ColourTable", state.ColourTable, 0);
  visit("BodyStart", state.BodyStart);
  visit("FontCount", state.FontCount);
  visit("FontFaces", state.FontFaces, 0);
  visit("FontCharsets", state.FontCharsets, 0);
  visit("SizeTable", state.SizeTable, 0);
  visit("LinkPrefixes", state.LinkPrefixes, 1);
  visit("LinkDelimiters", state.LinkDelimiters, 1);
  visit("FoundLinks", state.FoundLinks, 1);
  visit("FoundEmails", state.FoundEmails, 1);
  visit("CellFragments", state.CellFragments, 1);
  visit("CarriedFont", state.CarriedFont);
  visit("BoldOn", state.BoldOn);
  visit("ItalicOn", state.ItalicOn);
  visit("UnderlineOn", state.UnderlineOn);
}

// The languages by the words in use.
constexpr std::pair<LanguageModes, const char*> kLanguages[] = {{LanguageModes::English, "english"},
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
  template <class Value>
  void operator()(const char* name, List<Value>& value, std::int32_t lowest) {
    if (const Json* field = Field(name)) ListFromJson(*field, value, lowest);
  }
};

}  // namespace

Json StateToJson(const RtfToHtmlState& state, const std::vector<std::string>& names) {
  Json fields = Json::object();
  Writer writer{fields, names};
  VisitFields(state, writer);
  for (const std::string& name : names) {
    if (!fields.contains(name)) throw Refusal("usage");
  }
  return fields;
}

void StateFromJson(const Json& fields, RtfToHtmlState& state) {
  if (!fields.is_object()) throw Refusal("usage");
  Reader reader{fields};
  VisitFields(state, reader);
  if (reader.found != fields.size()) throw Refusal("usage");
  state.options = ReadOptions(state.ConvertImages, state.ImageFormat, state.UseSpanTags, state.UseFontTags);
  Widen(state.ColourTable, state.ColourCount);
  Widen(state.FontFaces, state.FontCount);
  Widen(state.FontCharsets, state.FontCount);
}

Json ToJson(const TextList& list, std::int32_t lowest) { return ListToJson(list, lowest); }

TextList ToList(const Json& value, std::int32_t lowest) {
  TextList list;
  ListFromJson(value, list, lowest);
  return list;
}

}  // namespace quillary::routine

// The state of the HTML to RTF direction by the names in use.
#include "state_fields.h"

namespace quillary::routine {

Json ElementToJson(const FontLevel& level) {
  return {{"font", std::int16_t{level.font}},
          {"size", std::int16_t{level.size}},
          {"colour", std::int16_t{level.colour}},
          {"isSpan", level.isSpan},
          {"bold", level.bold},
          {"italic", level.italic},
          {"underline", level.underline},
          {"strike", level.strike}};
}
Json ElementToJson(const ListLevel& level) {
  return {{"ordered", level.ordered},
          {"counter", std::int16_t{level.counter}},
          {"type", ToJson(TextView(level.type))},
          {"closed", level.closed}};
}
Json ElementToJson(const ParaSpan& span) { return span.set; }
Json ElementToJson(const StyleRule& rule) {
  return {{"Selector", ToJson(TextView(rule.Selector))},
          {"Face", ToJson(TextView(rule.Face))},
          {"Size", std::int16_t{rule.Size}},
          {"Colour", ToJson(TextView(rule.Colour))},
          {"Background", ToJson(TextView(rule.Background))},
          {"Spare", ToJson(TextView(rule.Spare))},
          {"ListStyle", ToJson(TextView(rule.ListStyle))}};
}
Json ElementToJson(const StyleSheet& sheet) {
  return {{"Name", ToJson(TextView(sheet.Name))},
          {"TagRules", ListToJson(sheet.TagRules, 0)},
          {"ClassRules", ListToJson(sheet.ClassRules, 0)},
          {"IdRules", ListToJson(sheet.IdRules, 0)}};
}

namespace {

// Hands the fields of a table to a visitor, by name and reference.
template <class Level, class Visitor>
void VisitTableLevel(Level& level, Visitor&& visit) {
  visit("widths", level.widths);
  visit("tableWidth", level.tableWidth);
  visit("cellCount", level.cellCount);
  visit("hasBorder", level.hasBorder);
  visit("cellOpen", level.cellOpen);
  visit("rowOpen", level.rowOpen);
  visit("rowPos", level.rowPos);
  visit("rowBrace", level.rowBrace);
  visit("cellBrace", level.cellBrace);
  visit("centred", level.centred);
  visit("inRow", level.inRow);
  visit("padding", level.padding);
  visit("highlight", level.highlight);
  visit("borderTop", level.borderTop);
  visit("borderLeft", level.borderLeft);
  visit("borderBottom", level.borderBottom);
  visit("borderRight", level.borderRight);
  visit("hasBorderStyle", level.hasBorderStyle);
  visit("colourTop", level.colourTop);
  visit("colourLeft", level.colourLeft);
  visit("colourBottom", level.colourBottom);
  visit("colourRight", level.colourRight);
}

struct RecordWriter {
  Json& record;
  void operator()(const char* name, const Text& value) const { record[name] = ToJson(TextView(value)); }
  void operator()(const char* name, const Integer16& value) const { record[name] = std::int16_t{value}; }
  void operator()(const char* name, const std::int32_t& value) const { record[name] = value; }
  void operator()(const char* name, const bool& value) const { record[name] = value; }
};

}  // namespace

Json ElementToJson(const TableLevel& level) {
  Json record = Json::object();
  VisitTableLevel(level, RecordWriter{record});
  return record;
}

namespace {

// Reads the fields of a record; one that it has none of stays as it is.
class RecordReader {
 public:
  explicit RecordReader(const Json& record) : record_(record) {
    if (!record.is_object()) throw Refusal("usage");
  }
  void operator()(const char* name, Integer16& value) const {
    std::int16_t number = value;
    ElementFromJson(record_.value(name, Json(number)), number);
    value = number;
  }
  void operator()(const char* name, std::int32_t& value) const {
    const Json field = record_.value(name, Json(value));
    if (!field.is_number_integer()) throw Refusal("usage");
    value = field.get<std::int32_t>();
  }
  void operator()(const char* name, bool& value) const { value = Boolean(record_.value(name, Json(value))); }
  void operator()(const char* name, Text& value) const {
    ElementFromJson(record_.value(name, ToJson(TextView(value))), value);
  }

 private:
  const Json& record_;
};

}  // namespace

void ElementFromJson(const Json& json, FontLevel& level) {
  const RecordReader read(json);
  read("font", level.font);
  read("size", level.size);
  read("colour", level.colour);
  read("isSpan", level.isSpan);
  read("bold", level.bold);
  read("italic", level.italic);
  read("underline", level.underline);
  read("strike", level.strike);
}
void ElementFromJson(const Json& json, ListLevel& level) {
  const RecordReader read(json);
  read("ordered", level.ordered);
  read("counter", level.counter);
  read("type", level.type);
  read("closed", level.closed);
}
void ElementFromJson(const Json& json, ParaSpan& span) { span.set = Boolean(json); }
void ElementFromJson(const Json& json, StyleRule& rule) {
  const RecordReader read(json);
  read("Selector", rule.Selector);
  read("Face", rule.Face);
  read("Size", rule.Size);
  read("Colour", rule.Colour);
  read("Background", rule.Background);
  read("Spare", rule.Spare);
  read("ListStyle", rule.ListStyle);
}
void ElementFromJson(const Json& json, StyleSheet& sheet) {
  RecordReader read(json);
  read("Name", sheet.Name);
  ListFromJson(json.value("TagRules", Json()), sheet.TagRules, 0);
  ListFromJson(json.value("ClassRules", Json()), sheet.ClassRules, 0);
  ListFromJson(json.value("IdRules", Json()), sheet.IdRules, 0);
}
void ElementFromJson(const Json& json, TableLevel& level) { VisitTableLevel(level, RecordReader(json)); }

namespace {

template <class State, class Visitor>
void VisitFields(State& state, Visitor& visit) {
  visit("RtfOut", state.RtfOut);
  visit("HtmlWork", state.HtmlWork);
  visit("ColourList", state.ColourList, 0);
  visit("RtfColourCount", state.RtfColourCount);
  visit("FontList", state.FontList, 0);
  visit("RtfFontCount", state.RtfFontCount);
  visit("LanguageStack", state.LanguageStack, 0);
  visit("LanguageCount", state.LanguageCount);
  visit("TextOnLine", state.TextOnLine);
  visit("TextInTable", state.TextInTable);
  visit("AfterGap", state.AfterGap);
  visit("GapSeen", state.GapSeen);
  visit("PendingPara", state.PendingPara);
  visit("InHyperlink", state.InHyperlink);
  visit("InListItem", state.InListItem);
  visit("ItemClosed", state.ItemClosed);
  visit("ParasInItem", state.ParasInItem);
  visit("QuoteIndent", state.QuoteIndent);
  visit("ListStack", state.ListStack, 0);
  visit("ParaSpans", state.ParaSpans, 0);
  visit("TableStack", state.TableStack, 1);
  visit("TableDepth", state.TableDepth);
  visit("TableBorderMode", state.TableBorderMode);
  visit("TableScale", state.TableScale);
  visit("TableFirst", state.TableFirst);
  visit("FontStack", state.FontStack, 0);
  visit("CurrentFont", state.CurrentFont);
  visit("RestoreHighlight", state.RestoreHighlight);
  visit("HighlightSpans", state.HighlightSpans);
  visit("FontHighlight", state.FontHighlight);
  visit("StyleSheets", state.StyleSheets, 0);
  visit("FetchCount", state.FetchCount);
  visit("DocCharset", state.DocCharset);
  visit("IsUtf8", state.IsUtf8);
  visit("IsIso2022Jp", state.IsIso2022Jp);
  visit("IsGb2312", state.IsGb2312);
}

}  // namespace

void VisitHtmlToRtf(const HtmlToRtfState& state, Writer& writer) { VisitFields(state, writer); }
void VisitHtmlToRtf(HtmlToRtfState& state, Reader& reader) { VisitFields(state, reader); }

}  // namespace quillary::routine

// The state of both directions by the names in use. This file has the fields of RTF to HTML.
#include "state_fields.h"

namespace quillary::routine {
namespace {

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

}  // namespace

Json StateToJson(const Apartment& apartment, const std::vector<std::string>& names) {
  Json fields = Json::object();
  Writer writer{fields, names};
  VisitFields(apartment.rtf_to_html, writer);
  VisitHtmlToRtf(apartment.html_to_rtf, writer);
  for (const std::string& name : names) {
    if (!fields.contains(name)) throw Refusal("usage");
  }
  return fields;
}

void StateFromJson(const Json& fields, Apartment& apartment) {
  if (!fields.is_object()) throw Refusal("usage");
  Reader reader{fields};
  RtfToHtmlState& state = apartment.rtf_to_html;
  VisitFields(state, reader);
  VisitHtmlToRtf(apartment.html_to_rtf, reader);
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

#include "rtf_to_html/driver/page_shell.h"

#include "apartment/flags.h"
#include "rtf_to_html/document_tables/colour_table.h"

namespace quillary::modQuillary {
namespace {

Text Head(const Text& title, const Text& generator) {
  return u"<html>\r\n<head>\r\n<title>" + title + u"</title>\r\n<meta name=\"GENERATOR\" content=\"" +
         (generator.empty() ? Text(u"Morvanta Quillary Control") : generator) + u"\">\r\n</head>";
}

Text BodyTag(Text& colour) {
  NormaliseColour(colour);
  if (colour.empty()) return u"\r\n<body>";
  return u"\r\n<BODY BGCOLOR=\"#" + colour + u"\">";
}

// Appends the end tags that are missing; where more than `most` are, none.
void BalanceTags(rules::Rewriting& page, TextView start_tag, TextView end_tag, std::int32_t most) {
  if (!page.Holds(start_tag, Compare::IgnoreCase)) return;
  const std::int32_t missing = CountOccurrences(page.text(), start_tag, Compare::IgnoreCase) -
                               CountOccurrences(page.text(), end_tag, Compare::IgnoreCase);
  if (missing < 1 || missing > most) return;
  Text& text = page.Edit();
  text += u"\r\n";
  for (std::int32_t i = 0; i < missing; ++i) text.append(end_tag).append(u">");
}

}  // namespace

void StartState(Conversion& conversion) {
  Apartment& apartment = conversion.apartment;
  const ConversionTexts& texts = conversion.texts;
  RtfToHtmlState& state = apartment.rtf_to_html;
  state.ConvertImages = texts.convert_images;
  state.ImageFolder = texts.image_folder;
  state.ImageFormat = texts.image_format;
  state.ImageName = texts.image_name;
  state.UseSpanTags = texts.use_span_tags;
  state.UseFontTags = texts.use_font_tags;
  state.options = ReadOptions(state.ConvertImages, state.ImageFormat, state.UseSpanTags, state.UseFontTags);
  state.LanguageMode = LanguageModes::English;
  state.HtmlOut = StartRewriting(apartment, {});
  state.EquationSeen = false;
  state.ForeignCharsets = false;
  state.CentreOpen = false;
  state.PendingIndent.clear();
  state.CarriedIndent.clear();
  state.CurrentFace.clear();
  state.CurrentSize.clear();
  state.CurrentColour.clear();
  state.IndentOpen = false;
  state.ColourExplicit = true;
  state.PictureCounter = 0;
  state.CurrentFontNumber = 0;
  state.ControlSegments = 0;
  state.LongSegments = 0;
}

void DumpSource(Conversion& conversion) {
  if (conversion.debug_dump) WriteDebugDump(conversion.apartment, conversion.texts.source);
}

void SetBodyMode(Conversion& conversion) {
  Text& body_mode = conversion.texts.body_mode;
  const bool fragment_with_fonts = FlagIs(body_mode, u"yes2");
  const bool fragment = fragment_with_fonts || FlagIs(body_mode, u"yes");
  if (!fragment) body_mode = u"no";
  conversion.state().BodyOnly = fragment;
  conversion.state().BodyOnlyFonts = fragment_with_fonts;
}

void WriteHead(Conversion& conversion) {
  if (conversion.state().BodyOnly) return;
  conversion.page().Assign(Head(conversion.texts.title, conversion.texts.generator));
}

void WriteBodyTag(Conversion& conversion) { conversion.page().Edit() += BodyTag(conversion.texts.colour); }

void CloseCentreAtEnd(Conversion& conversion) {
  RtfToHtmlState& state = conversion.state();
  if (!state.CentreOpen) return;
  conversion.page().Edit() += u"</CENTER>";
  state.CentreOpen = false;
}

void BalanceTables(rules::Rewriting& page) { BalanceTags(page, u"<table", u"</table", 4); }
void BalanceFonts(rules::Rewriting& page) { BalanceTags(page, u"<font", u"</font", 8); }

void CloseDocument(Conversion& conversion) {
  RtfToHtmlState& state = conversion.state();
  if (state.BodyOnly) return;
  Text& page = conversion.page().Edit();
  if (state.ParagraphOpen) {
    page += u"</p>";
    state.ParagraphOpen = false;
  }
  page += u"\r\n</body>\r\n</html>\r\n";
}

}  // namespace quillary::modQuillary

#include "html_to_rtf/driver/page_frame.h"

#include <optional>

#include "html_to_rtf/characters/runs.h"
#include "html_to_rtf/charsets/charsets.h"
#include "stylesheet/style_sheets.h"

namespace quillary::HTMLRTFConverter {
namespace {

bool Has(const Text& page, TextView find) { return Holds(page, find, Compare::IgnoreCase); }

Text LanguageOfCharset(std::int16_t charset) {
  switch (charset) {
    case 134:
      return u"ZH";
    case 128:
      return u"JA";
    case 129:
      return u"X-KOREAN";
    case 136:
      return u"ZH-TW";
    default:
      return u"EN";
  }
}

/// A tag of the page, as it is written and in upper case.
struct FoundTag {
  TextView written;
  TextView upper;
};

std::optional<FoundTag> FindTag(TextView page, TextView upper, TextView name) {
  const std::int32_t start = FindText(1, upper, name);
  const std::int32_t end = start > 0 ? FindText(start, upper, u">") : 0;
  if (end == 0) return std::nullopt;
  const std::int32_t units = end - start + 1;
  return FoundTag{MidView(page, start, units), MidView(upper, start, units)};
}

bool HasLanguage(const FoundTag& tag) { return Holds(tag.upper, u"LANG="); }

Text LanguageOf(const FoundTag& tag) {
  const std::int32_t found = FindText(1, tag.upper, u"LANG=");
  std::int32_t end = FindText(found, tag.written, u" ");
  if (end == 0) end = FindText(found, tag.written, u">");
  return ReplaceAll(MidView(tag.written, found + 5, end - found - 5), u"\"", u"");
}

}  // namespace

void SupplyFrame(Conversion& conversion) {
  Text& page = conversion.html;
  if (!Has(page, u"<body")) page.insert(0, u"<body>\r\n");
  if (!Has(page, u"<html")) page.insert(0, u"<html>\r\n");
  if (!Has(page, u"</body>")) page += u"\r\n</body>";
  if (!Has(page, u"</html>")) page += u"\r\n</html>";
}

void DecodeCyrillic(Conversion& conversion) {
  Text& page = conversion.html;
  if (Has(page, u"windows-1251\"") || Has(page, u"windows-1251'")) page = CyrillicToEntities(page);
}

// Pages without pictures need what pictures are made by, too.
void StartState(Conversion& conversion) {
  const platform::Services& services = conversion.apartment.services;
  if (!services.fetcher || !services.picture_creator || !services.files) throw Failure(Failure::Kind::Raised);
  HtmlToRtfState& state = conversion.state();
  state = HtmlToRtfState();
  state.ParaSpans.Size(0);
  state.ParaSpans.Set(0, {});
  state.ColourList.Size(0);
  state.FontList.Size(0);
  state.LanguageStack.Size(0);
  state.ListStack.Size(0);
  state.ListStack.Set(0, {});
  state.RestoreHighlight = 5;
  state.FetchCount = 1;
  state.HtmlWork = StartRewriting(conversion.apartment, conversion.html);
}

void ReadPageKind(Conversion& conversion) {
  conversion.of_word_processor = DetectCharset(conversion.state(), conversion.page().text());
}

void ReadDefinitions(Conversion& conversion) {
  if (conversion.of_word_processor) stylesheet::ReadWordDefinitions(conversion.page().Edit());
}

void DecodeIso2022Jp(Conversion& conversion) {
  if (conversion.state().IsIso2022Jp) ConvertIso2022Jp(conversion.page().Edit());
}

void StartFonts(Conversion& conversion) {
  HtmlToRtfState& state = conversion.state();
  state.FontStack.Size(0);
  state.FontStack.Set(0, {0, 24, 1});
  state.StyleSheets.Size(0);
  state.StyleSheets.Set(0, {});
}

void CollectSheets(Conversion& conversion) {
  stylesheet::CollectStyleSheets(conversion.apartment, conversion.page().text(), conversion.style_base);
}

void SetBaseLanguage(Conversion& conversion) {
  HtmlToRtfState& state = conversion.state();
  state.LanguageStack.Size(0);
  state.LanguageCount = 1;
  state.LanguageStack.Set(0, LanguageOfCharset(state.DocCharset));
  const Text& page = state.HtmlWork.text();
  const Text upper = ToUpper(page);
  std::optional<FoundTag> tag = FindTag(page, upper, u"<BODY");
  if (!tag) return;
  if (!HasLanguage(*tag)) tag = FindTag(page, upper, u"<HTML");
  if (!tag || !HasLanguage(*tag)) return;
  const Text language = LanguageOf(*tag);
  if (!language.empty()) state.LanguageStack.Set(0, language);
}

void CutHead(Conversion& conversion) {
  rules::Rewriting& page = conversion.page();
  const std::int32_t body = FindText(1, page.text(), u"<BODY", Compare::IgnoreCase);
  if (body > 1) page.Edit().erase(0, static_cast<std::size_t>(body) - 1);
}

void TakePassLimit(Conversion& conversion) { conversion.pass_limit = Length(conversion.page().text()); }

void ApplySheets(Conversion& conversion) {
  if (conversion.state().StyleSheets[0].Name.empty()) return;
  stylesheet::ApplyStyleRules(conversion.apartment, conversion.page().Edit());
}

void StartBody(Conversion& conversion) {
  HtmlToRtfState& state = conversion.state();
  state.FontList.Size(1);
  state.FontList.Set(0, u"Times New Roman");
  state.FontList.Set(1, u"MS Sans Serif");
  state.RtfFontCount = 2;
  constexpr TextView kColours[] = {u"000000", u"ff0000", u"00ff00", u"0000ff", u"ffffff"};
  state.ColourList.Size(4);
  for (std::int32_t i = 0; i < 5; ++i) state.ColourList.Set(i, Text(kColours[i]));
  state.RtfColourCount = 5;
  state.TableStack.Size(1);
  state.TableStack.Set(1, {});
  state.TableBorderMode = conversion.border_mode;
}

}  // namespace quillary::HTMLRTFConverter

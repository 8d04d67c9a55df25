#include "component/conversions.h"

#include <utility>

#include "component/conversions.rules.h"
#include "component/entry_options.h"
#include "component/frm_clean.h"
#include "component/run_driver.h"
#include "html_finishing/late_finish.rules.h"
#include "rtf_to_html/page_repairs/form_layouts.h"
#include "rules/run.h"

namespace quillary::component {
namespace {

// Longer texts are not searched for the stray control word.
constexpr std::size_t kShortText = 10000;

// Cuts away everything up to the end of the body tag.
void CutBodyTag(Text& page) {
  const std::int32_t start = FindText(1, page, u"<BODY", Compare::IgnoreCase);
  if (start == 0) return;
  page.erase(0, static_cast<std::size_t>(FindText(start + 2, page, u">")));
}

// The cleaner's XHTML opens a highlight behind a font that it has not opened.
Text MendHighlight(Apartment& apartment, Text page) {
  return rules::RunOver(chains::XhtmlHighlights, StartRewriting(apartment, std::move(page)));
}

// HTML_Text as the HTML cleaner and its last pass leave it, if the options ask for it.
Text Cleaned(Apartment& apartment, const EntryOptions& options, const Properties& properties) {
  if (options.cleaning == Cleaning::None) return properties.HTML_Text;
  const auto cleaner = apartment.services.html_cleaner ? apartment.services.html_cleaner() : nullptr;
  if (!cleaner) throw Failure(Failure::Kind::Raised, 0, "HTML cleaner", "There is no HTML cleaner.");
  Text page = options.cleaning == Cleaning::Xhtml ? cleaner->TidyDLL_ToXHTML(properties.HTML_Text)
                                                  : cleaner->TidyDLL_CleanHTML(properties.HTML_Text);
  return rules::RunOver(chains::LateFinish, StartRewriting(apartment, std::move(page)));
}

Text CleanedResult(Apartment& apartment, const EntryOptions& options, const Properties& properties) {
  Text result = Cleaned(apartment, options, properties);
  if (options.cleaning == Cleaning::Xhtml) result = MendHighlight(apartment, std::move(result));
  return result;
}

}  // namespace

void RichTextRoundTrip(Apartment& apartment, Text& rtf) {
  frmClean form(apartment);
  form.rtf1().SetTextRTF(rtf);
  rtf = form.rtf1().TextRTF();
}

Text TidyOutput(Apartment& apartment, const Properties& properties) {
  return Cleaned(apartment, ReadEntryOptions(properties), properties);
}

Text ConvertRTF(Apartment& apartment, Properties& properties) {
  const EntryOptions options = ReadEntryOptions(properties);
  if (properties.RTF_Text.size() < kShortText) {
    ReplaceIn(properties.RTF_Text, u"\\''b0 ", u"\\b0 ", Compare::IgnoreCase);
  }
  if (options.round_trip) RichTextRoundTrip(apartment, properties.RTF_Text);
  properties.HTML_Text = RunDriver(apartment, properties, properties.RTF_Text, u"no");
  rules::Rewriting page = StartRewriting(apartment, std::move(properties.HTML_Text));
  modQuillary::LayOutForms(page);
  properties.HTML_Text = page.Take();
  return CleanedResult(apartment, options, properties);
}

Text ConvertRawHtml(Apartment& apartment, Properties& properties) {
  const EntryOptions options = ReadEntryOptions(properties);
  if (options.round_trip) RichTextRoundTrip(apartment, properties.RTF_Text);
  properties.HTML_Text = RunDriver(apartment, properties, properties.RTF_Text, u"yes");
  CutBodyTag(properties.HTML_Text);
  return CleanedResult(apartment, options, properties);
}

Text ConvertPlainHTML(Apartment& apartment, Properties& properties) {
  const EntryOptions options = ReadEntryOptions(properties);
  {
    frmClean form(apartment);
    form.rtf1().SetText(properties.Plain_Text);
    properties.Plain_Text = form.rtf1().TextRTF();
  }
  properties.HTML_Text = RunDriver(apartment, properties, properties.Plain_Text, u"no");
  return Cleaned(apartment, options, properties);
}

Text ConvertNoBody(Apartment& apartment, Properties& properties) {
  const EntryOptions options = ReadEntryOptions(properties);
  if (options.round_trip) RichTextRoundTrip(apartment, properties.RTF_Text);
  properties.HTML_Text = RunDriver(apartment, properties, properties.RTF_Text, u"no");
  Text& page = properties.HTML_Text;
  if (options.cleaning != Cleaning::None) {
    page = rules::RunOver(chains::DocumentTypes,
                          StartRewriting(apartment, Cleaned(apartment, options, properties)));
  }
  if (!ReplaceIn(page, u"</body></html>", u"")) {
    // The end tags as the driver writes them are 20 units long.
    page = Left(page, Length(page) - 20) + u"\r\n";
  }
  CutBodyTag(page);
  return options.cleaning == Cleaning::Xhtml ? MendHighlight(apartment, page) : page;
}

Text ConvertRTFPlain(Apartment& apartment, Properties& properties) {
  ReplaceIn(properties.RTF_Text, u"\\''b0 ", u"\\b0 ");
  frmClean form(apartment);
  form.rtf1().SetTextRTF(properties.RTF_Text);
  properties.RTF_Text = form.rtf1().TextRTF();
  return form.rtf1().PlainText();
}

}  // namespace quillary::component

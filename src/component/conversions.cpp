#include "component/conversions.h"

#include <utility>

#include "apartment/flags.h"
#include "component/conversions.rules.h"
#include "component/frm_clean.h"
#include "component/run_driver.h"
#include "html_finishing/late_finish.h"
#include "rtf_to_html/page_repairs/form_layouts.h"
#include "rules/run.h"

namespace quillary::component {
namespace {

using modQuillary::Folded;

// Longer texts are not searched for the stray control word.
constexpr std::size_t kShortText = 10000;

/// What the properties ask of the HTML cleaner.
enum class Cleaning { None, Html, Xhtml };

Cleaning CleaningOf(const Properties& properties) {
  if (Folded(properties.XHTMLOutput, u"yes")) return Cleaning::Xhtml;
  return Folded(properties.CleanHTML, u"yes") ? Cleaning::Html : Cleaning::None;
}

void RoundTripUnlessOff(Apartment& apartment, const Properties& properties, Text& rtf) {
  if (!Folded(properties.CleanRTF, u"nono")) RichTextRoundTrip(apartment, rtf);
}

// Cuts away everything up to the end of the body tag.
void CutBodyTag(Text& page) {
  const std::int32_t start = FindText(1, page, u"<BODY", Compare::IgnoreCase);
  if (start == 0) return;
  page.erase(0, static_cast<std::size_t>(FindText(start + 2, page, u">")));
}

// Pages that come out of a mail program are laid out as the forms they were;
// documents of one house name a font which pages do not have.
void LayOutForms(Apartment& apartment, Text& page) {
  if (modQuillary::IsMailForm(page)) page = modQuillary::MailFormLayout(std::move(page), &apartment);
  if (modQuillary::IsCalendarForm(page)) page = modQuillary::CalendarFormLayout(std::move(page), &apartment);
  if (modQuillary::IsMemoForm(page)) page = modQuillary::MemoFormLayout(std::move(page), &apartment);
  if (!Holds(page, u"ADMISSION HISTORY AND PHYSICAL:", Compare::IgnoreCase)) return;
  ReplaceIn(page, u"font FACE=\"MS Sans Serif\"", u"font FACE=\"Arial\"", Compare::IgnoreCase, 1);
}

// The cleaner's XHTML opens a highlight behind a font that it has not opened.
Text MendHighlight(Apartment& apartment, Text page) {
  return rules::RunOver(chains::XhtmlHighlights, std::move(page), &apartment);
}

Text TidiedResult(Apartment& apartment, const Properties& properties) {
  Text result = TidyOutput(apartment, properties);
  if (CleaningOf(properties) == Cleaning::Xhtml) result = MendHighlight(apartment, std::move(result));
  return result;
}

}  // namespace

void RichTextRoundTrip(Apartment& apartment, Text& rtf) {
  frmClean form(apartment);
  form.rtf1().SetTextRTF(rtf);
  rtf = form.rtf1().TextRTF();
}

Text TidyOutput(Apartment& apartment, const Properties& properties) {
  const Cleaning cleaning = CleaningOf(properties);
  if (cleaning == Cleaning::None) return properties.HTML_Text;
  const auto cleaner = apartment.services.html_cleaner ? apartment.services.html_cleaner() : nullptr;
  if (!cleaner) throw Failure(Failure::Kind::Raised, 0, "HTML cleaner", "There is no HTML cleaner.");
  Text page = cleaning == Cleaning::Xhtml ? cleaner->TidyDLL_ToXHTML(properties.HTML_Text)
                                          : cleaner->TidyDLL_CleanHTML(properties.HTML_Text);
  html_finishing::LateFinish(page, &apartment);
  return page;
}

Text ConvertRTF(Apartment& apartment, Properties& properties) {
  if (properties.RTF_Text.size() < kShortText) {
    ReplaceIn(properties.RTF_Text, u"\\''b0 ", u"\\b0 ", Compare::IgnoreCase);
  }
  RoundTripUnlessOff(apartment, properties, properties.RTF_Text);
  properties.HTML_Text = RunDriver(apartment, properties, properties.RTF_Text, u"no");
  LayOutForms(apartment, properties.HTML_Text);
  return TidiedResult(apartment, properties);
}

Text ConvertRawHtml(Apartment& apartment, Properties& properties) {
  RoundTripUnlessOff(apartment, properties, properties.RTF_Text);
  properties.HTML_Text = RunDriver(apartment, properties, properties.RTF_Text, u"yes");
  CutBodyTag(properties.HTML_Text);
  return TidiedResult(apartment, properties);
}

Text ConvertPlainHTML(Apartment& apartment, Properties& properties) {
  {
    frmClean form(apartment);
    form.rtf1().SetText(properties.Plain_Text);
    properties.Plain_Text = form.rtf1().TextRTF();
  }
  properties.HTML_Text = RunDriver(apartment, properties, properties.Plain_Text, u"no");
  return TidyOutput(apartment, properties);
}

Text ConvertNoBody(Apartment& apartment, Properties& properties) {
  RoundTripUnlessOff(apartment, properties, properties.RTF_Text);
  properties.HTML_Text = RunDriver(apartment, properties, properties.RTF_Text, u"no");
  Text& page = properties.HTML_Text;
  if (CleaningOf(properties) != Cleaning::None) {
    page = rules::RunOver(chains::DocumentTypes, TidyOutput(apartment, properties), &apartment);
  }
  if (!ReplaceIn(page, u"</body></html>", u"")) {
    // The end tags as the driver writes them are 20 units long.
    page = Left(page, Length(page) - 20) + u"\r\n";
  }
  CutBodyTag(page);
  return CleaningOf(properties) == Cleaning::Xhtml ? MendHighlight(apartment, page) : page;
}

Text ConvertRTFPlain(Apartment& apartment, Properties& properties) {
  ReplaceIn(properties.RTF_Text, u"\\''b0 ", u"\\b0 ");
  frmClean form(apartment);
  form.rtf1().SetTextRTF(properties.RTF_Text);
  properties.RTF_Text = form.rtf1().TextRTF();
  return form.rtf1().PlainText();
}

}  // namespace quillary::component

#include "html_to_rtf/driver/convert_html_document.h"

#include <string_view>
#include <utility>

#include "apartment/growth_limit.h"
#include "html_to_rtf/driver/html_steps.h"

namespace quillary::HTMLRTFConverter {
namespace {

const Text& TextOf(const Step& step, const Conversion& conversion) {
  switch (step.works_on) {
    case On::Source:
      return conversion.html;
    case On::Body:
      return conversion.apartment.html_to_rtf.RtfOut;
    case On::Document:
      return conversion.document;
    case On::Page:
      break;
  }
  return conversion.apartment.html_to_rtf.HtmlWork.text();
}

void ShowStep(const Step& step, const Conversion& conversion, std::size_t failed_before) {
  const Apartment& apartment = conversion.apartment;
  const Text& text = TextOf(step, conversion);
  CheckGrowth(apartment, text);
  if (!apartment.trace) return;
  const bool failed = apartment.failed_steps.size() > failed_before;
  apartment.trace(step.name, text, failed ? apartment.failed_steps.back().failure : std::string_view());
}

}  // namespace

Text ConvertHtmlDocument(Apartment& apartment, Text& html, TextView style_base, TextView image_folder,
                         Integer16 border_mode) {
  if (html.size() > limits::kInputUnits) throw LimitReached(LimitReached::Limit::Input);
  const GrowthLimit growth(apartment, html.size());
  apartment.stopped_short = {};
  apartment.failed_steps.clear();

  Conversion conversion{apartment, html, style_base, image_folder, border_mode};
  for (const Step& step : PreparingSteps()) {
    RunStep(step, conversion);
    ShowStep(step, conversion, 0);
  }
  for (const Step& step : ConvertingSteps()) {
    const std::size_t failed_before = apartment.failed_steps.size();
    AttemptStep(apartment, step.name, [&] { RunStep(step, conversion); });
    ShowStep(step, conversion, failed_before);
  }
  html.clear();
  return std::move(conversion.document);
}

}  // namespace quillary::HTMLRTFConverter

#include "rtf_to_html/driver/convert_to_html.h"

#include <algorithm>
#include <string_view>

#include "apartment/flags.h"
#include "apartment/growth_limit.h"
#include "links/link_lists.h"
#include "rtf_to_html/driver/conversion.h"
#include "rtf_to_html/driver/steps.h"

namespace quillary::modQuillary {
namespace {

/// A table block that fails every time must not keep the conversion from ending.
constexpr int kMostRounds = 25;

/// The tables of a document are looked for in its first part only, which keeps
/// the readers away from large picture data after them.
constexpr std::int32_t kTableUnits = 20000;

// Runs a step under its own guard: one that fails is skipped, and the next one
// goes on with the page as it stands.
void Take(const Step& step, Conversion& conversion) {
  Apartment& apartment = conversion.apartment;
  const std::size_t failed = apartment.failed_steps.size();
  conversion.go_back = false;
  AttemptStep(apartment, step.name, [&] { RunStep(step, conversion); });
  CheckGrowth(apartment, conversion.page().text());
  if (!apartment.trace) return;
  const bool failed_now = apartment.failed_steps.size() > failed;
  apartment.trace(step.name, conversion.page().text(),
                  failed_now ? apartment.failed_steps.back().failure : std::string_view());
}

std::size_t IndexOf(std::span<const Step> steps, std::string_view name) {
  const auto found =
      std::find_if(steps.begin(), steps.end(), [&](const Step& step) { return step.name == name; });
  return static_cast<std::size_t>(found - steps.begin());
}

void TakeAll(std::span<const Step> steps, Conversion& conversion) {
  int rounds = 1;
  for (std::size_t at = 0; at < steps.size();) {
    const Step& step = steps[at++];
    if (step.when != nullptr && !step.when(conversion)) continue;
    Take(step, conversion);
    if (conversion.go_back && rounds++ < kMostRounds) at = IndexOf(steps, step.back_to);
  }
}

bool FoundAllThatFit(const TextList& found) { return found.last_set() >= links::kFoundLimit; }

}  // namespace

Text ConvertToHtml(Apartment& apartment, ConversionTexts texts) {
  if (texts.source.size() > limits::kInputUnits) throw LimitReached(LimitReached::Limit::Input);
  const GrowthLimit growth(apartment, texts.source.size());
  RtfToHtmlState& state = apartment.rtf_to_html;
  apartment.stopped_short = {};
  apartment.failed_steps.clear();

  Conversion conversion(apartment, texts);
  conversion.all_links = texts.links.empty() || FlagIs(texts.links, u"yes");
  conversion.debug_dump = FlagIs(texts.debug, u"yes");
  conversion.tables = Left(texts.source, kTableUnits);
  TakeAll(Steps(), conversion);

  apartment.stopped_short.links =
      FoundAllThatFit(state.FoundLinks) || (conversion.all_links && FoundAllThatFit(state.FoundEmails));
  texts.source.clear();
  // The index of the page's contents is not kept with it.
  Text page = state.HtmlOut.Take();
  state.HtmlOut = rules::Rewriting(page);
  return page;
}

void WriteDebugDump(Apartment& apartment, TextView text) {
  const auto& diagnostics = apartment.services.diagnostics;
  if (!diagnostics) return;
  if (!Attempt([&] { diagnostics->WriteDump(text); })) {
    diagnostics->Message(u"Error, unable to create rtftext.txt file");
  }
}

}  // namespace quillary::modQuillary

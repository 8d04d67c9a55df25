#include "component/all_chains.h"

#include <vector>

#include "component/conversions.rules.h"
#include "component/convert_rtf_header.rules.h"
#include "html_finishing/late_finish.rules.h"
#include "html_to_rtf/driver/html_steps.h"
#include "rtf_to_html/driver/steps.h"
#include "rtf_to_html/page_repairs/form_layouts.rules.h"

namespace quillary::component {
namespace {

constexpr const rules::Chain* kChainsOfEntryPoints[] = {
    &chains::MailFormLayout, &chains::CalendarFormLayout, &chains::MemoFormLayout,
    &chains::HeaderBreaks,   &chains::HeaderStart,        &chains::TransferHeader,
    &chains::LateFinish,     &chains::DocumentTypes,      &chains::XhtmlHighlights};

template <class Step>
void AddChainsOf(std::span<const Step> steps, std::vector<const rules::Chain*>& all) {
  for (const Step& step : steps) {
    if (const auto chain = std::get_if<const rules::Chain*>(&step.run)) all.push_back(*chain);
    all.insert(all.end(), step.chains.begin(), step.chains.end());
  }
}

std::vector<const rules::Chain*> Collect() {
  std::vector<const rules::Chain*> all;
  AddChainsOf(modQuillary::Steps(), all);
  all.insert(all.end(), std::begin(kChainsOfEntryPoints), std::end(kChainsOfEntryPoints));
  AddChainsOf(HTMLRTFConverter::PreparingSteps(), all);
  AddChainsOf(HTMLRTFConverter::ConvertingSteps(), all);
  return all;
}

}  // namespace

std::span<const rules::Chain* const> AllChains() {
  static const std::vector<const rules::Chain*> all = Collect();
  return all;
}

}  // namespace quillary::component

#include "html_finishing/late_finish.h"

#include "apartment/apartment.h"
#include "html_finishing/late_finish.rules.h"
#include "rules/run.h"

namespace quillary::html_finishing {

void LateFinish(Text& html, Apartment* apartment) {
  html = rules::RunOver(chains::LateFinish, std::move(html), apartment);
}

}  // namespace quillary::html_finishing

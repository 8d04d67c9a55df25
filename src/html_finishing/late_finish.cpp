#include "html_finishing/late_finish.h"

#include "html_finishing/late_finish.rules.h"
#include "rules/run.h"

namespace quillary::html_finishing {

void LateFinish(Text& html) {
  rules::Rewriting page(std::move(html));
  rules::Run(chains::LateFinish, page);
  html = page.Take();
}

}  // namespace quillary::html_finishing

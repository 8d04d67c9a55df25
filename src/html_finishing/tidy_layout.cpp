#include "html_finishing/tidy_layout.h"

#include "html_finishing/tidy_layout.rules.h"
#include "rules/run.h"

namespace quillary::html_finishing {

void TidyLayout(rules::Rewriting& page) { rules::Run(chains::TidyLayout, page); }

Text TidyLayout(Text html) {
  rules::Rewriting page(std::move(html));
  TidyLayout(page);
  return page.Take();
}

}  // namespace quillary::html_finishing

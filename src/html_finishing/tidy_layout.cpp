#include "html_finishing/tidy_layout.h"

#include "html_finishing/tidy_layout.rules.h"
#include "rules/run.h"

namespace quillary::html_finishing {

void TidyLayout(rules::Rewriting& page) { rules::Run(chains::TidyLayout, page); }

}  // namespace quillary::html_finishing

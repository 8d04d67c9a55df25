#include "rtf_to_html/page_repairs/closing_repairs.h"

#include "rtf_to_html/page_repairs/closing_repairs.rules.h"
#include "rules/run.h"

namespace quillary::modQuillary {

void DropStrayClosers(rules::Rewriting& page) { rules::Run(chains::DropStrayClosers, page); }

void MergeAdjoiningFonts(rules::Rewriting& page) { rules::Run(chains::MergeAdjoiningFonts, page); }

void DropEmptyCellForms(rules::Rewriting& page) { rules::Run(chains::DropEmptyCellForms, page); }

void TidyDocumentEnd(rules::Rewriting& page) { rules::Run(chains::TidyDocumentEnd, page); }

}  // namespace quillary::modQuillary

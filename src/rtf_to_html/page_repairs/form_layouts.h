// Fixed table layouts for pages that come out of a mail program.
#pragma once

#include "rules/rewriting.h"
#include "text/text.h"

namespace quillary::modQuillary {

bool IsMailForm(TextView page);
bool IsCalendarForm(TextView page);
bool IsMemoForm(TextView page);

/// Lays mail, calendar and memo forms out as the forms they were, and gives
/// the transfer sheets of one house the face that they ask for.
void LayOutForms(rules::Rewriting& page);

}  // namespace quillary::modQuillary

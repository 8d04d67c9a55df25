// Fixed table layouts for pages that come out of a mail program: which pages
// they are for, and the layouts.
#pragma once

#include "text/text.h"

namespace quillary::modQuillary {

bool IsMailForm(TextView page);
bool IsCalendarForm(TextView page);
bool IsMemoForm(TextView page);

Text MailFormLayout(Text page);
Text CalendarFormLayout(Text page);
Text MemoFormLayout(Text page);

}  // namespace quillary::modQuillary

// Fixed table layouts for pages that come out of a mail program: which pages
// they are for, and the layouts.
#pragma once

#include "text/text.h"

namespace quillary {
struct Apartment;
}

namespace quillary::modQuillary {

bool IsMailForm(TextView page);
bool IsCalendarForm(TextView page);
bool IsMemoForm(TextView page);

/// The apartment, if there is one, notes the rules that fire.
Text MailFormLayout(Text page, Apartment* apartment = nullptr);
Text CalendarFormLayout(Text page, Apartment* apartment = nullptr);
Text MemoFormLayout(Text page, Apartment* apartment = nullptr);

}  // namespace quillary::modQuillary

#include "rtf_to_html/page_repairs/form_layouts.h"

#include <utility>

#include "apartment/apartment.h"
#include "rtf_to_html/page_repairs/form_layouts.rules.h"
#include "rules/rewriting.h"
#include "rules/run.h"

namespace quillary::modQuillary {
namespace {

constexpr TextView mail_fonts = u"<font FACE=\"Tms Rmn\" SIZE=\"3\" ></font><font FACE=\"Tms Rmn\" >";
constexpr TextView calendar_title = u"<font size=\"1\">Calendar Entry:";
// The tables of the page are 690 wide, but for the one that this looks for.
constexpr TextView memo_head =
    u"<BODY BGCOLOR=\"#FFFFFF\"><font FACE=\"Tms Rmn\" SIZE=\"3\" ><br>"
    u"<table BORDER=\"1\" CELLSPACING=\"0\" WIDTH=\"590\" bordercolorlight=\"#000000\" "
    u"bordercolordark=\"#000000\" bordercolor=\"#000000\"><tr>";

}  // namespace

bool IsMailForm(TextView page) { return Holds(page, mail_fonts, Compare::IgnoreCase); }
bool IsCalendarForm(TextView page) { return Holds(page, calendar_title, Compare::IgnoreCase); }
bool IsMemoForm(TextView page) { return Holds(page, memo_head, Compare::IgnoreCase); }

Text MailFormLayout(Text page, Apartment* apartment) {
  return rules::RunOver(chains::MailFormLayout, std::move(page), apartment);
}
Text CalendarFormLayout(Text page, Apartment* apartment) {
  return rules::RunOver(chains::CalendarFormLayout, std::move(page), apartment);
}
Text MemoFormLayout(Text page, Apartment* apartment) {
  return rules::RunOver(chains::MemoFormLayout, std::move(page), apartment);
}

}  // namespace quillary::modQuillary

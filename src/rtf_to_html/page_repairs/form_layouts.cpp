#include "rtf_to_html/page_repairs/form_layouts.h"

#include "rtf_to_html/page_repairs/form_layouts.rules.h"
#include "rules/run.h"

namespace quillary::modQuillary {
namespace {

constexpr TextView kMailFonts = u"<font FACE=\"Tms Rmn\" SIZE=\"3\" ></font><font FACE=\"Tms Rmn\" >";
constexpr TextView kCalendarTitle = u"<font size=\"1\">Calendar Entry:";
// The tables of the page are 690 wide, but for the one that this looks for.
constexpr TextView kMemoHead =
    u"<BODY BGCOLOR=\"#FFFFFF\"><font FACE=\"Tms Rmn\" SIZE=\"3\" ><br>"
    u"<table BORDER=\"1\" CELLSPACING=\"0\" WIDTH=\"590\" bordercolorlight=\"#000000\" "
    u"bordercolordark=\"#000000\" bordercolor=\"#000000\"><tr>";

}  // namespace

bool IsMailForm(TextView page) { return Holds(page, kMailFonts, Compare::IgnoreCase); }
bool IsCalendarForm(TextView page) { return Holds(page, kCalendarTitle, Compare::IgnoreCase); }
bool IsMemoForm(TextView page) { return Holds(page, kMemoHead, Compare::IgnoreCase); }

void LayOutForms(rules::Rewriting& page) {
  if (IsMailForm(page.text())) rules::Run(chains::MailFormLayout, page);
  if (IsCalendarForm(page.text())) rules::Run(chains::CalendarFormLayout, page);
  if (IsMemoForm(page.text())) rules::Run(chains::MemoFormLayout, page);
  // Documents of one house name a font which pages do not have.
  if (!page.Holds(u"ADMISSION HISTORY AND PHYSICAL:", Compare::IgnoreCase)) return;
  page.Replace(u"font FACE=\"MS Sans Serif\"", u"font FACE=\"Arial\"", Compare::IgnoreCase, 1);
}

}  // namespace quillary::modQuillary

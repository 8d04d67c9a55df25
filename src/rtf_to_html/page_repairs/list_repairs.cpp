#include "rtf_to_html/page_repairs/list_repairs.h"

#include "apartment/apartment.h"
#include "rtf_to_html/page_repairs/list_repairs.rules.h"
#include "rules/run.h"

namespace quillary::modQuillary {

void MarkBullets(rules::Rewriting& page) { rules::Run(chains::MarkBullets, page); }

void IndentFirstNumbers(rules::Rewriting& page) { rules::Run(chains::IndentFirstNumbers, page); }

void IndentSecondNumbers(rules::Rewriting& page) { rules::Run(chains::IndentSecondNumbers, page); }

void SupplyDefaultFont(rules::Rewriting& page, TextView colour) {
  const RtfToHtmlState& state = page.apartment().rtf_to_html;
  if (page.Holds(u"<font face=\"", Compare::IgnoreCase) || state.FontCount < 1) return;
  const Text face = Trim(state.FontFaces[0]);
  if (face.empty()) return;
  const Text body = u"<BODY BGCOLOR=\"#" + Text(colour) + u"\">";
  page.Replace(body, body + u"<font face=\"" + face + u"\">", Compare::IgnoreCase, 1);
  page.Replace(u"</body>", u"</font>\r\n</body>", Compare::IgnoreCase, 1);
}

void MendSymbolBullets(rules::Rewriting& page) { rules::Run(chains::MendSymbolBullets, page); }

void ShortenBulletIndents(rules::Rewriting& page) { rules::Run(chains::ShortenBulletIndents, page); }

void MendSectionBullets(rules::Rewriting& page) { rules::Run(chains::MendSectionBullets, page); }

void MendListIndents(rules::Rewriting& page) { rules::Run(chains::MendListIndents, page); }

void MendBoldNumbers(rules::Rewriting& page) { rules::Run(chains::MendBoldNumbers, page); }

}  // namespace quillary::modQuillary

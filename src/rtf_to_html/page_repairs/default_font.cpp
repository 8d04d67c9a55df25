#include "rtf_to_html/page_repairs/default_font.h"

namespace quillary::modQuillary {

void SupplyDefaultFont(rules::Rewriting& page, const RtfToHtmlState& state, TextView colour) {
  if (page.Holds(u"<font face=\"", Compare::IgnoreCase) || state.FontCount < 1) return;
  const Text face = Trim(state.FontFaces[0]);
  if (face.empty()) return;
  const Text body = u"<BODY BGCOLOR=\"#" + Text(colour) + u"\">";
  page.Replace(body, body + u"<font face=\"" + face + u"\">", Compare::IgnoreCase, 1);
  page.Replace(u"</body>", u"</font>\r\n</body>", Compare::IgnoreCase, 1);
}

}  // namespace quillary::modQuillary

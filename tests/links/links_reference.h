// Reference implementations of the scans: each step by itself, with a search of
// the whole page and a copy of it wherever one is due. Slow by design.
#pragma once

#include "apartment/rtf_to_html_state.h"

namespace quillary::links_reference {

void ScanLinks(RtfToHtmlState& state, TextView copy);
void ScanBracketLinks(RtfToHtmlState& state, TextView copy);
void ScanEmailAddresses(RtfToHtmlState& state, TextView copy);
Text ExtractEmailAddress(TextView stretch);
Text StripEmailFringe(Text& word);
Text RepairLabelAnchors(TextView html);
Text RepairLabelLinks(TextView html);
Text RepairPictureLinks(TextView html);

}  // namespace quillary::links_reference

// The judges of the fast scans: each step as it is told, with a whole search
// and a whole copy wherever one is told. Slow by design.
#pragma once

#include "apartment/rtf_to_html_state.h"

namespace quillary::links_twins {

void ScanLinks(RtfToHtmlState& state, TextView copy);
void ScanBracketLinks(RtfToHtmlState& state, TextView copy);
void ScanEmailAddresses(RtfToHtmlState& state, TextView copy);
Text ExtractEmailAddress(TextView stretch);
Text StripEmailFringe(Text& word);
Text RepairLabelAnchors(TextView html);
Text RepairLabelLinks(TextView html);
Text RepairPictureLinks(TextView html);

}  // namespace quillary::links_twins

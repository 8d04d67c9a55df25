// The faces of the document in the order in which the finishing stages take them.
#pragma once

#include <vector>

#include "apartment/rtf_to_html_state.h"

namespace quillary::html_finishing {

/// The trimmed faces from font 0 through the font count, an entry that was
/// never set as an empty one; none if no font table was ever read.
std::vector<Text> FacesInTurn(const RtfToHtmlState& state);

}  // namespace quillary::html_finishing

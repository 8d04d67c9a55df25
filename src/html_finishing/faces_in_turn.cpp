#include "html_finishing/faces_in_turn.h"

#include <algorithm>

namespace quillary::html_finishing {

std::vector<Text> FacesInTurn(const RtfToHtmlState& state) {
  std::vector<Text> faces;
  if (!state.FontFaces.sized()) return faces;
  const std::int32_t last = std::min<std::int32_t>(state.FontCount, state.FontFaces.upper());
  for (std::int32_t i = 0; i <= last; ++i) faces.push_back(Trim(state.FontFaces[i]));
  return faces;
}

}  // namespace quillary::html_finishing

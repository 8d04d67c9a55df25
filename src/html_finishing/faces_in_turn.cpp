#include "html_finishing/faces_in_turn.h"

namespace quillary::html_finishing {

std::vector<Text> FacesInTurn(const RtfToHtmlState& state) {
  std::vector<Text> faces;
  if (!state.FontFaces.sized()) return faces;
  for (std::int32_t i = 0; i <= state.FontCount; ++i) {
    faces.push_back(state.FontFaces.has(i) ? Trim(state.FontFaces[i]) : Text());
  }
  return faces;
}

}  // namespace quillary::html_finishing

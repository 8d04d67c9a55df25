#include "html_finishing/font_turns.h"

namespace quillary::html_finishing {

void FontTurns::Run() {
  const std::vector<Text> no_colour(1);
  const bool has_colours = !names_.colours().empty();
  for (int size = 0; size <= kLastSize; ++size) {
    const Text size_text = Decimal(size);
    for (const Text& colour : has_colours ? names_.colours() : no_colour) {
      const Text* own_colour = has_colours ? &colour : nullptr;
      for (std::size_t i = 0; i < names_.faces().size(); ++i) {
        const Text& face = names_.faces()[i];
        if (FaceOccurs(i)) RunFaceRows(size_text, own_colour, face);
        if (has_colours && ColourTagOccurs()) RunColourRows(colour);
        if (FaceOccurs(i)) RunBlackRows(own_colour, face);
      }
    }
  }
}

void FontTurns::ReplaceBoth(const Text& tag, TextView with) {
  Replace(tag + u" >", with);
  Replace(tag + u">", with);
}

bool FontTurns::FaceOccurs(std::size_t face) {
  if (changed_) Look();
  return face_occurs_[face];
}

bool FontTurns::ColourTagOccurs() {
  if (changed_) Look();
  return colour_tag_occurs_;
}

void FontTurns::Look() {
  changed_ = false;
  face_occurs_.clear();
  for (const Text& face : names_.faces()) {
    face_occurs_.push_back(page_.Holds(Joined({u"FACE=\"", face, u"\""}), Compare::Binary));
  }
  colour_tag_occurs_ = page_.Holds(colour_tag_, Compare::Binary);
}

}  // namespace quillary::html_finishing

// The way through the font tags of a page whose names look like tags
// themselves, or whose tags stand inside one another: turn by turn, for every
// size, colour and font in this order, since one replacement can make the next.
#pragma once

#include "html_finishing/font_shapes.h"
#include "rules/rewriting.h"

namespace quillary::html_finishing {

class FontTurns {
 public:
  virtual ~FontTurns() = default;
  /// Skips the rows whose face, or whose colour tag, the page does not hold.
  void Run();

 protected:
  /// `colour_tag` begins every tag of RunColourRows.
  FontTurns(rules::Rewriting& page, const FontNames& names, TextView colour_tag)
      : page_(page), names_(names), colour_tag_(colour_tag) {}

  /// `own_colour` is null where the document has no colours.
  virtual void RunFaceRows(const Text& size, const Text* own_colour, const Text& face) = 0;
  virtual void RunColourRows(const Text& own_colour) = 0;
  virtual void RunBlackRows(const Text* own_colour, const Text& face) = 0;

  void Replace(TextView find, TextView with) { changed_ |= page_.Replace(find, with, Compare::Binary); }
  /// A tag that lacks its end only, with a space in front of it and then without.
  void ReplaceBoth(const Text& tag, TextView with);

 private:
  bool FaceOccurs(std::size_t face);
  bool ColourTagOccurs();
  void Look();

  rules::Rewriting& page_;
  const FontNames& names_;
  TextView colour_tag_;
  bool changed_ = true;  // since the last look
  bool colour_tag_occurs_ = false;
  std::vector<bool> face_occurs_;
};

}  // namespace quillary::html_finishing

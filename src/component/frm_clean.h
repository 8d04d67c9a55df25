// The hidden form with the rich text control.
#pragma once

#include <memory>

#include "apartment/apartment.h"
#include "platform/rich_text/rich_text_box.h"

namespace quillary::component {

/// frmClean with its control rtf1. It is made where it is needed and unloaded
/// at the end of that scope.
class frmClean {
 public:
  /// Throws Failure (raised) if there is no control.
  explicit frmClean(Apartment& apartment)
      : control_(apartment.services.rich_text_box ? apartment.services.rich_text_box() : nullptr) {
    if (!control_)
      throw Failure(Failure::Kind::Raised, 0, "rich text control", "There is no rich text control.");
  }

  platform::RichTextBox& rtf1() { return *control_; }

 private:
  std::unique_ptr<platform::RichTextBox> control_;
};

}  // namespace quillary::component

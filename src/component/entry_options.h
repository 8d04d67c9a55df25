// What the properties mean to the entry points. They are texts; they are tested
// once, at the start of a conversion.
#pragma once

#include "component/properties.h"

namespace quillary::component {

/// What the HTML cleaner is asked for.
enum class Cleaning { None, Html, Xhtml };

struct EntryOptions {
  bool round_trip = true;              // through the rich text control, unless CleanRTF is "nono" in any case
  Cleaning cleaning = Cleaning::None;  // XHTMLOutput "yes" wins over CleanHTML "yes", both in any case
};

EntryOptions ReadEntryOptions(const Properties& properties);

}  // namespace quillary::component

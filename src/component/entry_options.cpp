#include "component/entry_options.h"

#include "apartment/flags.h"

namespace quillary::component {

EntryOptions ReadEntryOptions(const Properties& properties) {
  EntryOptions options;
  options.round_trip = !FlagIs(properties.CleanRTF, u"nono");
  if (FlagIs(properties.XHTMLOutput, u"yes")) {
    options.cleaning = Cleaning::Xhtml;
  } else if (FlagIs(properties.CleanHTML, u"yes")) {
    options.cleaning = Cleaning::Html;
  }
  return options;
}

}  // namespace quillary::component

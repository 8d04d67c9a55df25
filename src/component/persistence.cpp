#include "component/persistence.h"

#include <new>

namespace quillary::component {
namespace {

// The keys in the order in which bags see them.
constexpr PropertyName kKeys[] = {
    {"RTF_Text", &Properties::RTF_Text},
    {"HTML_Text", &Properties::HTML_Text},
    {"Plain_Text", &Properties::Plain_Text},
    {"HTML_Title", &Properties::HTML_Title},
    {"HTML_Colour", &Properties::HTML_Colour},
    {"Generator", &Properties::Generator},
    {"Links", &Properties::Links},
    {"DoDebug", &Properties::DoDebug},
    {"CleanRTF", &Properties::CleanRTF},
    {"CleanHTML", &Properties::CleanHTML},
    {"XHTMLOutput", &Properties::XHTMLOutput},
    {"ConvertImages", &Properties::ConvertImages},
    {"ImageFolder", &Properties::ImageFolder},
    {"ImageFormat", &Properties::ImageFormat},
    {"ImageName", &Properties::ImageName},
    {"UseSpanTags", &Properties::UseSpanTags},
    {"UseFontTags", &Properties::UseFontTags},
    {"TableBorders", &Properties::TableBorders},
};

Properties NewProperties() {
  Properties properties;
  Class_InitProperties(properties);
  return properties;
}

}  // namespace

void Class_ReadProperties(Properties& properties, PropertyBag& bag) {
  const Properties defaults = NewProperties();
  try {
    for (const PropertyName& key : kKeys) {
      properties.*key.text = bag.ReadProperty(key.name, defaults.*key.text);
    }
  } catch (const std::bad_alloc&) {
    throw;
  } catch (...) {
    // The bag is the host's: it may throw anything.
  }
}

void Class_WriteProperties(const Properties& properties, PropertyBag& bag) {
  const Properties defaults = NewProperties();
  for (const PropertyName& key : kKeys) {
    bag.WriteProperty(key.name, properties.*key.text, defaults.*key.text);
  }
}

}  // namespace quillary::component

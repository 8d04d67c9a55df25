#include "component/conversions.h"
#include "html_to_rtf/driver/convert_html_document.h"

namespace quillary::component {
namespace {

// Every word but "no" and "0" asks for borders.
void NormaliseTableBorders(Text& borders) {
  if (borders == u"0" || borders == u"1") return;
  borders = ToLower(TrimView(borders)) == u"no" ? u"0" : u"1";
}

}  // namespace

Text ConvertHTML2RTF(Apartment& apartment, Properties& properties) {
  NormaliseTableBorders(properties.TableBorders);
  // Style sheets and pictures are looked for in the same folder.
  const Text& folder = properties.ImageFolder;
  properties.RTF_Text = HTMLRTFConverter::ConvertHtmlDocument(apartment, properties.HTML_Text, folder, folder,
                                                              ToInteger16(properties.TableBorders));
  return properties.RTF_Text;
}

}  // namespace quillary::component

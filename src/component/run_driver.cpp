#include "component/run_driver.h"

#include "rtf_to_html/driver/convert_to_html.h"

namespace quillary::component {

Text RunDriver(Apartment& apartment, Properties& properties, Text& source, TextView body_mode) {
  Text mode(body_mode);
  return modQuillary::ConvertToHtml(
      apartment,
      {source, properties.HTML_Title, properties.HTML_Colour, properties.Generator, properties.Links,
       properties.DoDebug, properties.ConvertImages, properties.ImageFolder, properties.ImageFormat,
       properties.ImageName, properties.UseSpanTags, properties.UseFontTags, mode});
}

}  // namespace quillary::component

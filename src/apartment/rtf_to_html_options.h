// What the settings of a conversion mean to its stages. The settings are texts;
// they are tested once, where they come in.
#pragma once

#include "text/text.h"

namespace quillary {

struct RtfToHtmlOptions {
  bool convert_images = false;  // ConvertImages is "yes", in any case
  bool png_images = false;      // ImageFormat is "png", in any case and between spaces; else JPEG
  bool spans = false;           // UseSpanTags is "yes", in any case and between spaces
  bool no_fonts = false;        // UseFontTags is "no", in any case and between spaces
};

RtfToHtmlOptions ReadOptions(TextView convert_images, TextView image_format, TextView use_span_tags,
                             TextView use_font_tags);

}  // namespace quillary

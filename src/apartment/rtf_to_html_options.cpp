#include "apartment/rtf_to_html_options.h"

#include "apartment/flags.h"

namespace quillary {

RtfToHtmlOptions ReadOptions(TextView convert_images, TextView image_format, TextView use_span_tags,
                             TextView use_font_tags) {
  return {FlagIs(convert_images, u"yes"), TrimmedFlagIs(image_format, u"png"),
          TrimmedFlagIs(use_span_tags, u"yes"), TrimmedFlagIs(use_font_tags, u"no")};
}

}  // namespace quillary

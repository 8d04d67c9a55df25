#include "html_to_rtf/characters/runs.h"
#include "platform/code_pages/code_pages.h"
#include "text/encodings.h"

namespace quillary::HTMLRTFConverter {

Text CyrillicToEntities(TextView text) {
  Text entities;
  entities.reserve(text.size());
  for (const char16_t unit : platform::DecodeBytes(1251, ToWindows1252(text, '?'))) {
    if (unit < 128) {
      entities += unit;
    } else {
      entities.append(u"&#").append(Decimal(unit)).append(u";");
    }
  }
  return entities;
}

}  // namespace quillary::HTMLRTFConverter

#include <algorithm>

#include "html_to_rtf/characters/runs.h"

namespace quillary::HTMLRTFConverter {

void CollapseSpaces(Text& text) {
  const auto is_second = [](char16_t before, char16_t unit) { return before == u' ' && unit == u' '; };
  text.erase(std::unique(text.begin(), text.end(), is_second), text.end());
}

Text UnescapeQuotes(TextView tag) { return ReplaceAll(tag, u"\\\"", u"\""); }

}  // namespace quillary::HTMLRTFConverter

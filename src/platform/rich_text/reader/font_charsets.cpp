#include "platform/rich_text/reader/font_charsets.h"

namespace quillary::platform::rtf {
namespace {

struct CharsetSuffix {
  std::int32_t charset;
  TextView suffix;
};

constexpr CharsetSuffix kCharsetSuffixes[] = {
    {161, u" Greek"},    {162, u" Tur"},      {163, u" (Vietnamese)"}, {177, u" (Hebrew)"},
    {178, u" (Arabic)"}, {179, u" (Arabic)"}, {180, u" (Arabic)"},     {181, u" (Hebrew)"},
    {186, u" Baltic"},   {204, u" Cyr"},      {222, u" (Thai)"},       {238, u" CE"},
};

}  // namespace

TextView SuffixOfCharset(std::int32_t charset) {
  for (const CharsetSuffix& entry : kCharsetSuffixes) {
    if (entry.charset == charset) return entry.suffix;
  }
  return {};
}

}  // namespace quillary::platform::rtf

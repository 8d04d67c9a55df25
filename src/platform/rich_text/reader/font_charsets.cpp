#include "platform/rich_text/reader/font_charsets.h"

#include <algorithm>
#include <iterator>

namespace quillary::platform::rtf {
namespace {

constexpr Charset kCharsets[] = {
    {77, 10000, u""},          {128, 932, u""},           {129, 949, u""},
    {130, 1361, u""},          {134, 936, u""},           {136, 950, u""},
    {161, 1253, u" Greek"},    {162, 1254, u" Tur"},      {163, 1258, u" (Vietnamese)"},
    {177, 1255, u" (Hebrew)"}, {178, 1256, u" (Arabic)"}, {179, 1256, u" (Arabic)"},
    {180, 1256, u" (Arabic)"}, {181, 1255, u" (Hebrew)"}, {186, 1257, u" Baltic"},
    {204, 1251, u" Cyr"},      {222, 874, u" (Thai)"},    {238, 1250, u" CE"},
    {254, 437, u""},           {255, 850, u""},
};

}  // namespace

const Charset* FindCharset(std::int32_t number) {
  const auto* found = std::find_if(std::begin(kCharsets), std::end(kCharsets),
                                   [&](const Charset& entry) { return entry.number == number; });
  return found == std::end(kCharsets) ? nullptr : found;
}

}  // namespace quillary::platform::rtf

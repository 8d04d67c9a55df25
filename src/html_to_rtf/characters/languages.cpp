#include "html_to_rtf/characters/runs.h"

namespace quillary::HTMLRTFConverter {
namespace {

struct Language {
  TextView name;
  std::int16_t code;
};

constexpr std::int16_t kEnglish = 1033;

constexpr Language kByTwoLetters[] = {
    {u"FR", 1036}, {u"DE", 1031}, {u"IT", 1040}, {u"NL", 1043}, {u"EL", 1032}, {u"ES", 1034}, {u"PT", 2070},
    {u"AR", 1025}, {u"HE", 1037}, {u"RU", 1049}, {u"JA", 1041}, {u"UR", 1056}, {u"ZH", 1028}};
// These win over the letters that they begin with.
constexpr Language kByWholeName[] = {{u"X-KOREAN", 1042}, {u"ZH-TW", 1054}};

}  // namespace

std::int16_t LanguageCode(const HtmlToRtfState& state, std::int32_t index) {
  const Text language = ToUpper(state.LanguageStack[index]);
  for (const auto& [name, code] : kByWholeName) {
    if (language == name) return code;
  }
  for (const auto& [name, code] : kByTwoLetters) {
    if (TextView(language).substr(0, 2) == name) return code;
  }
  return kEnglish;
}

}  // namespace quillary::HTMLRTFConverter

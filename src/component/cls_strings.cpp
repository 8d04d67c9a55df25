#include "component/cls_strings.h"

#include "text/failure.h"

namespace quillary::component {
namespace {

// Words are parted by white space and NUL.
bool PartsWords(char16_t unit) {
  return unit == 0 || (unit >= 0x09 && unit <= 0x0D) || unit == u' ' || unit == 0x85 || unit == 0xA0 ||
         unit == 0x1680 || (unit >= 0x2000 && unit <= 0x200A) || unit == 0x2028 || unit == 0x2029 ||
         unit == 0x202F || unit == 0x205F || unit == 0x3000;
}

Compare ModeOf(TextView number) {
  const std::int16_t mode = ToInteger16(number);
  if (mode != 0 && mode != 1) throw Failure(Failure::Kind::Argument);
  return static_cast<Compare>(mode);
}

bool IsInClass(TextView unit, TextView item) {
  if (Equal(item, u"Alphabetic", Compare::IgnoreCase)) {
    const Text upper = ToUpper(unit);
    return upper[0] >= u'A' && upper[0] <= u'Z';
  }
  if (Equal(item, u"Numeric", Compare::IgnoreCase)) return IsNumeric(unit);
  return Equal(item.substr(0, 1), unit, Compare::IgnoreCase);
}

}  // namespace

Text clsStrings::ToUpperCase(TextView pStr) { return ToUpper(pStr); }
Text clsStrings::ToLowerCase(TextView pStr) { return ToLower(pStr); }

Text clsStrings::Proper(TextView pStr) {
  const Text upper = ToUpper(pStr);
  Text proper = ToLower(pStr);
  bool first = true;
  for (std::size_t i = 0; i < proper.size(); ++i) {
    if (first) proper[i] = upper[i];
    first = PartsWords(pStr[i]);
  }
  return proper;
}

Text clsStrings::ReplaceString(TextView strSearch, TextView strOld, TextView strNew, TextView ignoreCase) {
  Text result;
  Attempt([&] { result = ReplaceAll(strSearch, strOld, strNew, ModeOf(ignoreCase)); });
  return result;
}

Text clsStrings::ToGgLeCaSe(TextView pStr) {
  const Text upper = ToUpper(pStr);
  const Text lower = ToLower(pStr);
  Text toggled(pStr);
  for (std::size_t i = 0; i < toggled.size(); ++i) {
    toggled[i] = toggled[i] == upper[i] ? lower[i] : upper[i];
  }
  return toggled;
}

bool clsStrings::IsCharIn(TextView psInput, const std::vector<Text>& pcolAllowed) {
  if (psInput.empty()) return false;
  for (const Text& item : pcolAllowed) {
    if (IsInClass(psInput.substr(0, 1), item)) return true;
  }
  return false;
}

}  // namespace quillary::component

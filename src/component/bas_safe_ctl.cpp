#include "component/bas_safe_ctl.h"

#include "text/ascii.h"
#include "text/failure.h"

namespace quillary::basSafeCtl {
namespace {

constexpr std::uint32_t kNoInterface = 0x80004002;
constexpr std::uint32_t kFail = 0x80004005;

// The safety that an interface is asked about, and whether the object has it.
struct Safety {
  std::uint32_t option;
  bool flag;
};

Safety SafetyOf(const server::Guid& riid) {
  const Text id = GuidText(riid);
  if (id == u"{00020400-0000-0000-C000-000000000046}") return {kSafeForCaller, kSafeForScripting};
  for (const TextView persistence :
       {u"{0000010A-0000-0000-C000-000000000046}", u"{00000109-0000-0000-C000-000000000046}",
        u"{37D84F60-42CB-11CE-8135-00AA004BB851}"}) {
    if (id == persistence) return {kSafeForData, kSafeForInitialising};
  }
  throw Failure(Failure::Kind::Raised, kNoInterface, "object safety", "There is no such interface.");
}

void AppendHex(Text& text, std::uint32_t value, int digits) {
  for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4) {
    text += AsciiUpper(static_cast<char16_t>(HexDigit(static_cast<int>((value >> shift) & 15U))));
  }
}

}  // namespace

Text GuidText(const server::Guid& guid) {
  Text text = u"{";
  AppendHex(text, guid.first, 8);
  text += u'-';
  AppendHex(text, guid.second, 4);
  text += u'-';
  AppendHex(text, guid.third, 4);
  text += u'-';
  for (int i = 0; i < 8; ++i) {
    if (i == 2) text += u'-';
    AppendHex(text, guid.rest[i], 2);
  }
  return text + u'}';
}

void IObjectSafety_GetInterfaceSafetyOptions(const server::Guid* riid, std::uint32_t& pdwSupportedOptions,
                                             std::uint32_t& pdwEnabledOptions) {
  pdwSupportedOptions = kSafeForCaller | kSafeForData;
  if (riid == nullptr) return;
  const Safety safety = SafetyOf(*riid);
  pdwEnabledOptions = safety.flag ? safety.option : 0;
}

void IObjectSafety_SetInterfaceSafetyOptions(const server::Guid* riid, std::uint32_t dwOptionsSetMask,
                                             std::uint32_t dwEnabledOptions) {
  if (riid == nullptr) return;
  const Safety safety = SafetyOf(*riid);
  // Both options at once match neither interface, so that request goes through.
  if ((dwOptionsSetMask & dwEnabledOptions) == safety.option && !safety.flag) {
    throw Failure(Failure::Kind::Raised, kFail, "object safety", "The object is not safe in that way.");
  }
}

}  // namespace quillary::basSafeCtl

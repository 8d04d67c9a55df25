// Whether hosts may script an object and initialise it with their data.
#pragma once

#include <cstdint>

#include "quillary/server.h"
#include "text/text.h"

namespace quillary::basSafeCtl {

inline constexpr std::uint32_t kSafeForCaller = 1;
inline constexpr std::uint32_t kSafeForData = 2;

/// Nothing ever sets these two.
inline constexpr bool kSafeForScripting = false;
inline constexpr bool kSafeForInitialising = false;

/// "{00020400-0000-0000-C000-000000000046}", in upper case.
Text GuidText(const server::Guid& guid);

/// Throw Failure (raised), whose code is that of the host: 0x80004002 for an interface that has no
/// safety, 0x80004005 for an option that is asked for and not there. No interface has no effect.
void IObjectSafety_GetInterfaceSafetyOptions(const server::Guid* riid, std::uint32_t& pdwSupportedOptions,
                                             std::uint32_t& pdwEnabledOptions);
void IObjectSafety_SetInterfaceSafetyOptions(const server::Guid* riid, std::uint32_t dwOptionsSetMask,
                                             std::uint32_t dwEnabledOptions);

}  // namespace quillary::basSafeCtl

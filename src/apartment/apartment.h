// All mutable state of a conversion. Every operation gets it by reference;
// nothing else is static and mutable.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

#include "apartment/rtf_to_html_state.h"
#include "platform/services/services.h"
#include "text/limits.h"

namespace quillary {

namespace rules {
class FiringLog;
}

/// Where a count of the rules stopped short of the end of a document.
struct StoppedShort {
  bool segments = false;
  bool pictures = false;
  bool links = false;
};

struct Apartment {
  RtfToHtmlState rtf_to_html;

  /// What the operating system and outside libraries supply. Copies share them.
  platform::Services services = platform::Services::System();

  /// No text under conversion may grow beyond this many units.
  std::size_t working_limit = limits::kWorkingUnits;

  /// Where the rules that fire are noted, or null.
  rules::FiringLog* firing_log = nullptr;

  /// Of the last conversion.
  StoppedShort stopped_short;

  /// Shown the page after each step of a conversion, for a person who wants to
  /// see what a step did.
  std::function<void(std::string_view step, TextView page)> trace;
};

/// Throws LimitReached if a text under conversion has grown to more units than
/// the apartment allows.
inline void CheckGrowth(const Apartment& apartment, const Text& text) {
  if (text.size() > apartment.working_limit) throw LimitReached(LimitReached::Limit::Growth);
}

}  // namespace quillary

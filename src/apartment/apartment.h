// All mutable state of a conversion. Every operation gets it by reference;
// nothing else is static and mutable.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

#include "apartment/html_to_rtf_state.h"
#include "apartment/rtf_to_html_state.h"
#include "platform/services/services.h"
#include "text/limits.h"

namespace quillary {

/// Where a count of the rules stopped short of the end of a document.
struct StoppedShort {
  bool segments = false;
  bool pictures = false;
  bool links = false;
};

/// A step of a conversion that failed and was skipped.
struct FailedStep {
  const char* step = nullptr;
  const char* failure = nullptr;  // its kind in one word, as Failure::name
};

struct Apartment {
  RtfToHtmlState rtf_to_html;
  HtmlToRtfState html_to_rtf;

  /// What the operating system and outside libraries supply. Copies share them.
  platform::Services services = platform::Services::System();

  /// No text under conversion may grow beyond this many units.
  std::size_t working_limit = limits::kWorkingUnits;

  /// Where the rules that fire are noted, or null.
  rules::FiringLog* firing_log = nullptr;

  // Of the last conversion.
  StoppedShort stopped_short;
  std::vector<FailedStep> failed_steps;

  /// Shown the page after each step of a conversion, for a person who wants to
  /// see what a step did. `failure` is the kind of a failure in the step, or empty.
  std::function<void(std::string_view step, TextView page, std::string_view failure)> trace;
};

/// The text on its way through rules, bound to the apartment's limit and noted
/// in its firing log.
inline rules::Rewriting StartRewriting(const Apartment& apartment, Text text) {
  return {std::move(text), apartment.working_limit, apartment.firing_log};
}

/// Runs a step; a Failure in it skips the rest of the step and is noted.
template <class Action>
void AttemptStep(Apartment& apartment, const char* step, Action&& action) {
  try {
    action();
  } catch (const Failure& failure) {
    apartment.failed_steps.push_back({step, failure.name()});
  }
}

/// Throws LimitReached if a text under conversion has grown to more units than
/// the apartment allows.
inline void CheckGrowth(const Apartment& apartment, const Text& text) {
  if (text.size() > apartment.working_limit) throw LimitReached(LimitReached::Limit::Growth);
}

}  // namespace quillary

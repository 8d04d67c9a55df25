// The table of steps: what a conversion of HTML to RTF does, in order.
#pragma once

#include <span>
#include <variant>

#include "html_to_rtf/driver/conversion.h"
#include "rules/rule.h"

namespace quillary::HTMLRTFConverter {

/// What a step works on: the caller's text, HtmlWork, RtfOut, or the document whole.
enum class On { Source, Page, Body, Document };

struct Step {
  const char* name = nullptr;
  On works_on = On::Page;
  /// A chain or a function over HtmlWork, or a function that needs more.
  std::variant<const rules::Chain*, void (*)(Text& page), void (*)(Conversion& conversion)> run;
  /// The chains that a function runs by itself, in running order.
  std::span<const rules::Chain* const> chains = {};
};

/// The steps that prepare the page, in running order: a failure in one goes to the caller.
std::span<const Step> PreparingSteps();

/// The steps after them: one that fails is skipped.
std::span<const Step> ConvertingSteps();

void RunStep(const Step& step, Conversion& conversion);

}  // namespace quillary::HTMLRTFConverter

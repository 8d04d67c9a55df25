// The table of steps: what a conversion of RTF to HTML does, in order. Module
// modQuillary.
#pragma once

#include <span>
#include <variant>

#include "rtf_to_html/driver/conversion.h"
#include "rules/rule.h"

namespace quillary::modQuillary {

/// What a step works on.
enum class On { State, Source, Page };

using PageFunction = void (*)(rules::Rewriting& page);
using ConversionFunction = void (*)(Conversion& conversion);

struct Step {
  const char* name = nullptr;
  On works_on = On::Page;
  /// A chain or a function over the page, or a function that needs more.
  std::variant<const rules::Chain*, PageFunction, ConversionFunction> run;
  /// Null for a step that every conversion takes.
  bool (*when)(Conversion& conversion) = nullptr;
  /// The chains that a function runs by itself, in running order.
  std::span<const rules::Chain* const> chains = {};
  /// The step to go back to, when this one asks for it.
  const char* back_to = nullptr;
};

/// All steps in running order.
std::span<const Step> Steps();

/// Runs a step that applies to the conversion.
void RunStep(const Step& step, Conversion& conversion);

}  // namespace quillary::modQuillary

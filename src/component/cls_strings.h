// A text toolkit beside the conversions, which none of them calls. A failure in one of these
// gives an empty result.
#pragma once

#include <vector>

#include "text/text.h"

namespace quillary::component {

class clsStrings {
 public:
  static Text ToUpperCase(TextView pStr);
  static Text ToLowerCase(TextView pStr);

  /// The first letter of each word in upper case, the rest in lower case.
  static Text Proper(TextView pStr);

  /// `strSearch` with each `strOld` replaced. `ignoreCase` is the compare mode as a number in a
  /// text, "0" or "1"; any other text is a failure.
  static Text ReplaceString(TextView strSearch, TextView strOld, TextView strNew, TextView ignoreCase);

  /// Upper case becomes lower case and the other way round.
  static Text ToGgLeCaSe(TextView pStr);

  /// Whether the first unit of `psInput` belongs to one of the classes: "Alphabetic", "Numeric",
  /// or the first unit of any other item, all in any case.
  static bool IsCharIn(TextView psInput, const std::vector<Text>& pcolAllowed);
};

}  // namespace quillary::component

// Words of RTF at the end of the body.
#pragma once

#include <cstdint>
#include <initializer_list>

#include "apartment/html_to_rtf_state.h"

namespace quillary::HTMLRTFConverter {

inline void Append(HtmlToRtfState& state, TextView words) { state.RtfOut += words; }

/// The word and its number: "\f" and 2 are "\f2".
inline void Append(HtmlToRtfState& state, TextView word, std::int32_t number) {
  state.RtfOut.append(word).append(Decimal(number));
}

}  // namespace quillary::HTMLRTFConverter

// Lists. An item is a paragraph with a hanging indent and a label written by hand.
#pragma once

#include <cstdint>

#include "apartment/html_to_rtf_state.h"
#include "text/text.h"

namespace quillary::HTMLRTFConverter {

/// Takes the tag as it is written: the case of TYPE matters.
void OpenOrderedList(HtmlToRtfState& state, TextView tag);
void OpenBulletList(HtmlToRtfState& state);
void CloseList(HtmlToRtfState& state);

/// Throws Failure (overflow) for an item beyond 32,767.
void OpenListItem(HtmlToRtfState& state);
void CloseListItem(HtmlToRtfState& state);

/// The label of an item: a letter or a Roman number up to 26, else a decimal number.
/// Throws Failure (argument) for a letter that there is not.
Text ListLabel(HtmlToRtfState& state, std::int16_t counter, TextView type);

}  // namespace quillary::HTMLRTFConverter

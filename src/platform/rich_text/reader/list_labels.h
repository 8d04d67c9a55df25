// The labels of list items: numbers in every style, and what stands around them.
#pragma once

#include <cstdint>

#include "platform/rich_text/model/document_model.h"

namespace quillary::platform::rtf {

/// "3", "c", "III" and the like.
Text NumberText(std::int32_t number, NumberStyle style);

/// Whether an item's label is more than a bullet.
bool HasNumber(const Text& label);

/// What stands in front of a number or after it, within bounds.
Text Affix(TextView text);

/// Splits the written number of an item into what stands in front of it and after it.
void SplitLabel(const Text& label, ListFormat& format);

}  // namespace quillary::platform::rtf

// What the number of a control word says.
#pragma once

#include <cstdint>

#include "platform/rich_text/reader/tokens.h"

namespace quillary::platform::rtf {

/// What a word that sets a state sets it to: "\b" and "\b1" switch it on,
/// "\b0" off. It never turns the state over.
bool IsOn(const Token& token);

/// Measures in twips, held within what a page can have.
std::int32_t Twips(std::int32_t number);

}  // namespace quillary::platform::rtf

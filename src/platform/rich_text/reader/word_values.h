// The values that the numbers of control words stand for.
#pragma once

#include <cstdint>

#include "platform/rich_text/reader/tokens.h"

namespace quillary::platform::rtf {

/// What a word that sets a state sets it to: "\b" and "\b1" switch it on,
/// "\b0" off. It never toggles the state.
bool IsOn(const Token& token);

/// A measure in twips, held within what a page can have.
std::int32_t Twips(std::int32_t number);

/// A language that a page may name, or 0. Greek and Turkish it may not: there
/// their words remap the escapes of all that follows.
std::uint16_t Language(std::int32_t number);

}  // namespace quillary::platform::rtf

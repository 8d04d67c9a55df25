// A file as a text, for hosts that have their document on disk.
#pragma once

#include "apartment/apartment.h"
#include "text/text.h"

namespace quillary::component {

/// The bytes of a file, each as its Windows-1252 character; "" if it cannot be read or is longer
/// than the longest input. Never fails.
Text FileToString(Apartment& apartment, TextView SourceFile);

}  // namespace quillary::component

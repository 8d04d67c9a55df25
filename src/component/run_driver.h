// How the entry points call the driver.
#pragma once

#include "apartment/apartment.h"
#include "component/properties.h"
#include "text/text.h"

namespace quillary::component {

/// Runs the driver over `source`, which is empty afterwards, with the settings
/// of `properties`.
Text RunDriver(Apartment& apartment, Properties& properties, Text& source, TextView body_mode);

}  // namespace quillary::component

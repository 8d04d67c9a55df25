// How a host saves the eighteen texts of an object and restores them.
#pragma once

#include "component/properties.h"
#include "quillary/property_bag.h"

namespace quillary::component {

/// Restores the properties, in the order in which they are saved; the value of a new object for a
/// key that the bag does not hold. A bag that fails ends it quietly: the later properties stay as
/// they were. Throws std::bad_alloc only.
void Class_ReadProperties(Properties& properties, PropertyBag& bag);

/// Saves the properties. Throws what the bag throws.
void Class_WriteProperties(const Properties& properties, PropertyBag& bag);

}  // namespace quillary::component

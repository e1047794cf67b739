// What a person may type into a property's field to see what happens.
#pragma once

#include "values/property_descriptor.h"

#include <string>
#include <vector>

namespace authoring {

// A value that the property takes and, where the mask lets one be typed, one out of its range.
std::vector<std::string> TypedValues(const values::PropertyDescriptor& property);

}  // namespace authoring

// Ranges of numbers: "1,99" is a minimum and a maximum; any other number of parts, or a part with a "-", makes a list
// of single values and of spans such as "0-5" and "-10-5".
#pragma once

#include "base/wide_string.h"

#include <cstdint>

namespace values {

// An empty range holds every value. The last "-" of a part divides it, so a lower bound may be negative and an upper
// one cannot.
bool InRange(std::int32_t value, WideStringView range);

// A "#" for each character of the longest upper bound.
WideString MaskFromRange(WideStringView range);

}  // namespace values

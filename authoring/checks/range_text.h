// The parts of a range, as they are read.
#pragma once

#include "base/wide_string.h"

#include <cstdint>
#include <vector>

namespace authoring {

struct RangePart {
  WideStringView text;
  std::int32_t low = 0;
  std::int32_t high = 0;
  bool wellFormed = true;  // numbers and nothing else
};

// A minimum and a maximum are one part.
std::vector<RangePart> PartsOfRange(WideStringView range);

}  // namespace authoring

// What somebody meant who misspelt a name.
#pragma once

#include "base/wide_string.h"

#include <optional>
#include <span>
#include <vector>

namespace authoring {

// The places in `names` of those nearest to a misspelt one, if any is near enough: all at the least distance, whatever
// their case.
std::vector<std::size_t> NearestNames(WideStringView name, std::span<const WideStringView> names);
// The first of them.
std::optional<WideString> NearestName(WideStringView name, std::span<const WideStringView> names);

}  // namespace authoring

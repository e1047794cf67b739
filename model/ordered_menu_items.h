// The order of a menu's entries.
#pragma once

#include "base/wide_string.h"
#include "config/data_store.h"

#include <vector>

namespace model {

// Reorders child names in place: first those whose keys have a usable `Ordinal` (1 to the number of names, the first
// of two equal ones), in ascending order; then all others as they stood. A name without a key is kept, with a debug
// line; the empty name comes last whatever its key has.
void InitOrderedMenuItems(std::vector<WideStringView>& names, const config::ConfigKey& parent,
                          const config::PDataStore& tree);

}  // namespace model

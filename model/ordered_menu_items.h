// The order of a menu's entries.
#pragma once

#include "base/wide_string.h"
#include "config/data_store.h"

#include <vector>

namespace model {

// The path of a child: the name itself when it names an absolute registry path ("HKEY" occurs in it), else the name
// below the parent.
WideString ChildPath(WideStringView parentPath, WideStringView name);

// Reorders child names in place: first those whose keys have a usable `Ordinal` (1 to the number of names, the first
// of two equal ones), in ascending order; then all others as they stood. A name without a key is kept, with a debug
// line.
void InitOrderedMenuItems(std::vector<WideString>& names, WideStringView parentPath, const config::PDataStore& tree);

}  // namespace model

// From a key to its children.
#pragma once

#include "base/wide_string.h"
#include "config/config_key.h"
#include "config/data_store.h"

namespace model {

// The name is a path of its own ("HKEY" occurs in it) instead of a name below the parent.
bool IsAbsoluteName(WideStringView name);

// The key of a child by its name; null when the tree has none.
const config::ConfigKey* FindChild(const config::PDataStore& tree, const config::ConfigKey& parent,
                                   WideStringView name);

}  // namespace model

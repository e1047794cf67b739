// Builders of the tree: each reads one kind of source into a table of paths.
#pragma once

#include "base/wide_string.h"
#include "config/arena.h"
#include "config/path_table.h"
#include "config/xml_index.h"

#include <cstddef>
#include <cstdint>

namespace config {

// Both read the root at depth 0 and the keys below it as far as maxDepth, and answer how many keys there are. A path
// that is met several times is one key; it counts with the least depth that it is met at.
std::size_t BuildFromXml(const XmlIndex& index, WideStringView rootPath, std::uint32_t maxDepth, PathTable& paths,
                         Arena& arena);
std::size_t BuildFromRegistry(WideStringView rootPath, std::uint32_t maxDepth, PathTable& paths, Arena& arena);

}  // namespace config

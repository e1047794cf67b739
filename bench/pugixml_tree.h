// The configuration's tree as one would make it with a well-known library: pugixml's document, walked into hash maps.
#pragma once

#include <cstddef>
#include <string_view>

namespace bench {

// Loads the document and gives it up; false when it is not well formed.
bool LoadWithPugixml(std::string_view bytes);

// Loads the document and makes a map from full path to values and subkey names; the number of keys.
std::size_t BuildTreeWithPugixml(std::string_view bytes);

}  // namespace bench

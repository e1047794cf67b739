// The unit of a setting's numbers, as far as a configuration gives one: no attribute is for it, so authors write it
// into the description or the name.
#pragma once

#include <string>
#include <string_view>

namespace authoring {

// "seconds" for the description "Seconds after the last key" or the name "Timeout (s)"; empty: none is given. The
// description counts first.
std::string UnitIn(std::string_view name, std::string_view description);

}  // namespace authoring

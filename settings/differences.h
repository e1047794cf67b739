// Which settings a terminal has otherwise than they are wanted.
#pragma once

#include "settings/wanted_settings.h"

namespace settings {

struct Difference {
  std::size_t setting = 0;  // its place among the wanted ones
  std::string present;      // as the screen shows it: no secret, and the text for a value that cannot be read
};

// In the order of the file. What lives in the program alone has no value to compare.
std::vector<Difference> FindDifferences(authoring::Trial& trial, const std::vector<WantedSetting>& wanted);

}  // namespace settings

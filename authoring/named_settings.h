// The settings of a device that a configuration names: whoever has them all has a device that the utility can work on.
#pragma once

#include "authoring/configuration.h"

#include <vector>

namespace authoring {

struct NamedSetting {
  WideString oid;   // as the device knows it
  WideString type;  // as the menus take it: of an OID that two properties name with different types, the last one's
  bool isSecret = false;   // its line shows stars, or it is a password or a key
  bool isExpected = true;  // false: the utility gets on where the device lacks it
  bool operator==(const NamedSetting&) const = default;
};

// Each OID once, in the order of the menus; then what handlers set, and what the wireless commands need. Where the
// wireless profile stands for a "*", there is one for each profile that can be chosen; the one in use on the device is
// `activeProfile`. The configuration has a tree.
std::vector<NamedSetting> NamedSettings(const Configuration& configuration, WideStringView activeProfile);

}  // namespace authoring

// Finding entries by anything that is said about them.
#pragma once

#include "authoring/menu_keys.h"
#include "authoring/trial.h"

#include <vector>

namespace authoring {

struct Hit {
  model::MenuItem* item = nullptr;
  const config::ConfigKey* key = nullptr;
  WideString matched;  // which attribute, "value" for the device's
  WideString text;     // of it
};

struct Hits {
  std::vector<Hit> all;
  MenuKeys keys;  // that lead to them now; none: a line on the way is hidden
};

// All entries with `text` in their name, OID, shown value, a choice, a rule or any other attribute, in any case, or
// with an attribute of that name. Names come first, then OIDs, values and all others, each in the order of the menus.
// What a line shows as stars is not looked at.
Hits Search(Trial& trial, WideStringView text);

}  // namespace authoring

// Finding entries by anything that is said about them.
#pragma once

#include "authoring/trial.h"

#include <string>
#include <vector>

namespace authoring {

struct Hit {
  model::MenuItem* item = nullptr;
  const config::ConfigKey* key = nullptr;
  WideString matched;              // which attribute, "value" for the device's
  WideString text;                 // of it
  std::optional<WideString> keys;  // that lead to it now; nothing: a line on the way is hidden
};

// All entries with `text` in their name, OID, shown value, a choice, a rule or any other attribute, in any case, or
// with an attribute of that name. Names come first, then OIDs, values and all others, each in the order of the menus.
// What a line shows as stars is not looked at.
std::vector<Hit> Search(Trial& trial, WideStringView text);

}  // namespace authoring

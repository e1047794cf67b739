// A rule in the words of the people at the terminal.
#pragma once

#include "authoring/trial.h"

#include <string>
#include <vector>

namespace authoring {

// One sentence for each rule of the item that concerns them, in the order in which they run: "Shown only when DHCP is
// Off." A rule that does nothing has none.
std::vector<std::string> RulesInWords(const Trial& trial, const model::MenuItem& item);

// "Off" for the value 0 of a setting with choices, else the value itself in quotes, "empty" for none. That of a secret
// is not said.
std::string ValueInWords(const Trial& trial, WideStringView oid, WideStringView value);

}  // namespace authoring

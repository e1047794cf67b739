// What VerifyNetUI does to a setting, in the words of the people at the terminal.
#pragma once

#include "authoring/trial.h"

#include <string>

namespace authoring {

// A sentence about when the item is shown, or what it can be; empty for an item that VerifyNetUI leaves alone or does
// not run for.
std::string WirelessInWords(const Trial& trial, const model::MenuItem& item);

}  // namespace authoring

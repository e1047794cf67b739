// What the machine knows of its network.
#pragma once

#include <string>

namespace platform::host {

std::string NameOfMachine();

// The address of a host, dotted; empty when nobody knows that name.
std::string AddressOf(const std::string& hostName);

}  // namespace platform::host

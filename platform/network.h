// The terminal's own name and address on the network.
#pragma once

#include "base/wide_string.h"

#include <cstdint>
#include <string>

namespace platform {

struct SocketVersion {
  int error = 0;         // nonzero: start-up failed
  std::uint8_t low = 0;  // the version granted, major in the low byte
  std::uint8_t high = 0;
};
SocketVersion StartSockets(std::uint16_t wantedVersion);
void StopSockets();

// Between StartSockets() and StopSockets(). `error` is 0 on success and else the system's code.
struct HostAnswer {
  int error = 0;
  std::string text;
};
HostAnswer HostName(std::size_t capacity);
HostAnswer FirstAddressOf(const std::string& hostName);  // dotted

}  // namespace platform

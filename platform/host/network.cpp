#include "platform/network.h"

#include "platform/host/environment.h"
#include "platform/host/machine_network.h"

#include <atomic>

namespace platform {

namespace {

// The codes of the terminal's own stack.
constexpr int kBadBuffer = 10014;
constexpr int kVersionNotSupported = 10092;
constexpr int kNotStarted = 10093;
constexpr int kHostNotFound = 11001;

std::atomic<int> starts = 0;

}  // namespace

// The terminal's stack knows version 1.1 and offers it for every later one.
SocketVersion StartSockets(std::uint16_t wantedVersion) {
  if ((wantedVersion & 0xFF) == 0) return {kVersionNotSupported, 0, 0};
  ++starts;
  return {0, 1, 1};
}

void StopSockets() {
  if (starts > 0) --starts;
}

HostAnswer HostName(std::size_t capacity) {
  if (starts == 0) return {kNotStarted, {}};
  const std::string& given = host::CurrentEnvironment().hostName;
  const std::string name = given.empty() ? host::NameOfMachine() : given;
  if (name.size() >= capacity) return {kBadBuffer, {}};
  return {0, name};
}

HostAnswer FirstAddressOf(const std::string& hostName) {
  if (starts == 0) return {kNotStarted, {}};
  const host::Environment& environment = host::CurrentEnvironment();
  if (!environment.hostName.empty()) {
    if (hostName != environment.hostName || environment.hostAddress.empty()) return {kHostNotFound, {}};
    return {0, environment.hostAddress};
  }
  const std::string address = host::AddressOf(hostName);
  if (address.empty()) return {kHostNotFound, {}};
  return {0, address};
}

}  // namespace platform

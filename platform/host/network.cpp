#include "platform/network.h"

#include "platform/host/environment.h"

#include <arpa/inet.h>
#include <netdb.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <memory>

namespace platform {

namespace {

// The codes of the terminal's own stack.
constexpr int kBadBuffer = 10014;
constexpr int kVersionNotSupported = 10092;
constexpr int kNotStarted = 10093;
constexpr int kHostNotFound = 11001;

std::atomic<int> starts = 0;

std::string NameOfMachine() {
  std::array<char, 256> name{};
  return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

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
  const std::string name = given.empty() ? NameOfMachine() : given;
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
  addrinfo hints{};
  hints.ai_family = AF_INET;
  hints.ai_socktype = SOCK_STREAM;
  addrinfo* found = nullptr;
  if (getaddrinfo(hostName.c_str(), nullptr, &hints, &found) != 0) return {kHostNotFound, {}};
  const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> owner(found, freeaddrinfo);
  std::array<char, NI_MAXHOST> text{};
  if (getnameinfo(found->ai_addr, found->ai_addrlen, text.data(), text.size(), nullptr, 0, NI_NUMERICHOST) != 0)
    return {kHostNotFound, {}};
  return {0, text.data()};
}

}  // namespace platform

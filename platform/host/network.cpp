#include "platform/network.h"

#include "platform/host/environment.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
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

std::string Dotted(const sockaddr& address, socklen_t length) {
  std::array<char, NI_MAXHOST> text{};
  const bool known = getnameinfo(&address, length, text.data(), text.size(), nullptr, 0, NI_NUMERICHOST) == 0;
  return known ? text.data() : "";
}

// The machine's address on its first network; empty when it is on none. Its own name often stands for no more than the
// machine itself, while a terminal answers with the address that others know it by.
std::string AddressOfMachine() {
  ifaddrs* interfaces = nullptr;
  if (getifaddrs(&interfaces) != 0) return {};
  const std::unique_ptr<ifaddrs, decltype(&freeifaddrs)> owner(interfaces, freeifaddrs);
  for (const ifaddrs* each = interfaces; each != nullptr; each = each->ifa_next) {
    const bool inUse = (each->ifa_flags & (IFF_UP | IFF_LOOPBACK)) == IFF_UP;
    if (!inUse || each->ifa_addr == nullptr || each->ifa_addr->sa_family != AF_INET) continue;
    return Dotted(*each->ifa_addr, sizeof(sockaddr_in));
  }
  return {};
}

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
  const std::string address = Dotted(*found->ai_addr, found->ai_addrlen);
  if (address.empty()) return {kHostNotFound, {}};
  const std::string own = address.starts_with("127.") && hostName == NameOfMachine() ? AddressOfMachine() : "";
  return {0, own.empty() ? address : own};
}

}  // namespace platform

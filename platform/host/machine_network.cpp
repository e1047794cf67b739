#include "platform/host/machine_network.h"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <net/if.h>
#include <netdb.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <memory>

namespace platform::host {
namespace {

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

}  // namespace

std::string NameOfMachine() {
  std::array<char, 256> name{};
  return gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

std::string AddressOf(const std::string& hostName) {
  addrinfo hints{};
  hints.ai_family = AF_INET;
  hints.ai_socktype = SOCK_STREAM;
  addrinfo* found = nullptr;
  if (getaddrinfo(hostName.c_str(), nullptr, &hints, &found) != 0) return {};
  const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> owner(found, freeaddrinfo);
  const std::string address = Dotted(*found->ai_addr, found->ai_addrlen);
  const std::string own = address.starts_with("127.") && hostName == NameOfMachine() ? AddressOfMachine() : "";
  return own.empty() ? address : own;
}

}  // namespace platform::host

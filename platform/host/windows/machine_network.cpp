#include "platform/host/machine_network.h"

#include <winsock2.h>
#include <ws2tcpip.h>

#include <array>
#include <memory>

namespace platform::host {
namespace {

// The system's sockets, while it lives.
class Sockets {
 public:
  Sockets() : started_(WSAStartup(MAKEWORD(2, 2), &data_) == 0) {}
  ~Sockets() {
    if (started_) WSACleanup();
  }
  Sockets(const Sockets&) = delete;
  Sockets& operator=(const Sockets&) = delete;

 private:
  WSADATA data_{};
  bool started_;
};

}  // namespace

std::string NameOfMachine() {
  const Sockets sockets;
  std::array<char, 256> name{};
  return gethostname(name.data(), static_cast<int>(name.size()) - 1) == 0 ? name.data() : "";
}

std::string AddressOf(const std::string& hostName) {
  const Sockets sockets;
  addrinfo hints{};
  hints.ai_family = AF_INET;
  hints.ai_socktype = SOCK_STREAM;
  addrinfo* found = nullptr;
  if (getaddrinfo(hostName.c_str(), nullptr, &hints, &found) != 0) return {};
  const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> owner(found, freeaddrinfo);
  std::array<char, NI_MAXHOST> text{};
  const bool known = getnameinfo(found->ai_addr, static_cast<socklen_t>(found->ai_addrlen), text.data(),
                                 static_cast<DWORD>(text.size()), nullptr, 0, NI_NUMERICHOST) == 0;
  return known ? text.data() : "";
}

}  // namespace platform::host

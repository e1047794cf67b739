#include "platform/network.h"

#include <winsock2.h>

#include "platform/win32/windows_api.h"

#include <algorithm>
#include <cstring>

namespace platform {

namespace {

// Version 1.1 is all that the terminal's sockets grant, whatever is asked for; a PC's would grant more.
WORD VersionToAskFor(WORD wanted) {
#ifdef UNDER_CE
  return wanted;
#else
  constexpr WORD kGranted = MAKEWORD(1, 1);
  const auto inOrder = [](WORD version) { return LOBYTE(version) * 256 + HIBYTE(version); };
  return inOrder(wanted) < inOrder(kGranted) ? wanted : kGranted;
#endif
}

}  // namespace

SocketVersion StartSockets(std::uint16_t wantedVersion) {
  WSADATA data = {};
  const int error = WSAStartup(VersionToAskFor(wantedVersion), &data);
  return {error, LOBYTE(data.wVersion), HIBYTE(data.wVersion)};
}

void StopSockets() { WSACleanup(); }

HostAnswer HostName(std::size_t capacity) {
  std::string name(capacity, '\0');
  if (gethostname(name.data(), static_cast<int>(capacity)) != 0) return {WSAGetLastError(), {}};
  name.resize(std::min(name.find('\0'), capacity));
  return {0, name};
}

HostAnswer FirstAddressOf(const std::string& hostName) {
  const hostent* host = gethostbyname(hostName.c_str());
  if (host == nullptr) return {WSAGetLastError(), {}};
  if (host->h_addr_list[0] == nullptr) return {WSANO_DATA, {}};
  in_addr address = {};
  std::memcpy(&address, host->h_addr_list[0], sizeof address);
  return {0, inet_ntoa(address)};
}

}  // namespace platform

#include "values/host_address.h"

#include "base/format.h"
#include "base/utf8.h"
#include "platform/debug.h"
#include "platform/network.h"

namespace values {
namespace {

constexpr WideStringView kUnknownAddress = u"?";

WideString LookUpAddress() {
  constexpr std::size_t kNameCapacity = 50;
  constexpr std::size_t kAddressLength = 21;

  const platform::HostAnswer name = platform::HostName(kNameCapacity);
  if (name.error != 0) {
    platform::KernelDebugOutput(base::Format(u"GetHostIPString: failed gethostname  %d\r\n", name.error));
    return WideString(kUnknownAddress);
  }
  const platform::HostAnswer address = platform::FirstAddressOf(name.text);
  if (address.error != 0) {
    platform::KernelDebugOutput(base::Format(u"GetHostIPString: failed gethostbyname  %d\r\n", address.error));
    return WideString(kUnknownAddress);
  }
  return base::FromUtf8(address.text).substr(0, kAddressLength);
}

}  // namespace

bool WsInit() {
  constexpr std::uint16_t kWantedVersion = 0x0202;

  const platform::SocketVersion granted = platform::StartSockets(kWantedVersion);
  if (granted.error != 0) {
    platform::KernelDebugOutput(base::Format(u"WsInit: Failed WSAStartup  %d\r\n", granted.error));
    return false;
  }
  // 2.2 is asked for and 1.1 is what the terminal grants; anything else is not its network.
  if (granted.low != 1 || granted.high != 1) {
    platform::KernelDebugOutput(base::Format(u"WsInit: Wrong version  %d, %d \r\n", granted.high, granted.low));
    platform::StopSockets();
    return false;
  }
  return true;
}

int GetHostIPString(WideString& text) {
  if (!WsInit()) {
    platform::KernelDebugOutput(u"GetIpAddr: failed WsInit\r\n");
    text = kUnknownAddress;
    return 1;
  }
  text = LookUpAddress();
  platform::StopSockets();
  return 0;
}

}  // namespace values

// As much of a manager (SNMPv2c) as tests need that ask an agent from threads of their own.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tests {

class UdpManager {
 public:
  // Of an agent at 127.0.0.1.
  UdpManager(std::uint16_t port, std::string community);
  ~UdpManager();
  UdpManager(const UdpManager&) = delete;
  UdpManager& operator=(const UdpManager&) = delete;

  // The integer below 1.3 (`number` is less than 128), as its octets say it; nothing unless the agent gave one. Both
  // ask again until an answer comes, for as long as the slowest machine may take.
  std::optional<std::int64_t> Get(std::uint8_t number);
  bool Set(std::uint8_t number, std::int16_t value);

 private:
  std::optional<std::string> Ask(char command, std::uint8_t number, const std::string& value);

  const std::string community_;
  int socket_ = -1;
  std::uint8_t request_ = 0;
};

// One that nobody has at 127.0.0.1 now.
std::uint16_t FreePort();

}  // namespace tests

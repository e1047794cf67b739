// Addresses with ports: "127.0.0.1:1161", "[::1]:1161", "terminal.example:161".
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace snmp {

struct Endpoint {
  std::string host;
  std::uint16_t port = 0;
  bool isV6 = false;  // written in brackets, which `host` lacks
  bool operator==(const Endpoint&) const = default;
};

// Nothing when the text is something else.
std::optional<Endpoint> ParseEndpoint(std::string_view text);

std::string ToText(const Endpoint& endpoint);

}  // namespace snmp

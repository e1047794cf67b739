// The device that a manager is to talk to: "snmp://[USER@]HOST[:PORT]", an IPv6 address in brackets.
#pragma once

#include "snmp/endpoint.h"

#include <optional>
#include <string>
#include <string_view>

namespace snmp {

struct Target {
  std::string user;  // of version 3; empty: a community of version 2c
  Endpoint endpoint;
  bool operator==(const Target&) const = default;
};

inline constexpr std::uint16_t kUsualPort = 161;

// Nothing, and `problem` says why without saying the text again (which may hold a password), when it is no target.
std::optional<Target> ParseTarget(std::string_view text, std::string& problem);

// As it is shown to people: without the port where that is the usual one.
std::string ToText(const Target& target);

}  // namespace snmp

#include "snmp/endpoint.h"

#include <gtest/gtest.h>

namespace {

using snmp::Endpoint;
using snmp::ParseEndpoint;

TEST(Endpoint, IsAHostWithAPort) {
  const std::pair<const char*, Endpoint> cases[] = {
      {"127.0.0.1:1161", {"127.0.0.1", 1161, false}},
      {"a-host.example:0", {"a-host.example", 0, false}},
      {"[::1]:65535", {"::1", 65535, true}},
      {"[fe80::1%eth0]:161", {"fe80::1%eth0", 161, true}},
  };
  for (const auto& [text, endpoint] : cases) {
    EXPECT_EQ(endpoint, ParseEndpoint(text)) << text;
    EXPECT_EQ(text, ToText(endpoint));
  }
}

TEST(Endpoint, AnythingElseIsNone) {
  for (const char* text : {"", ":", ":161", "host", "host:", "host:x", "host:65536", "host:-1", "host:0161", "::1:161",
                           "[]:161", "[::1]", "[::1:161", "udp:host:161", "ho st:161", "host/x:161", "[host/]:161"}) {
    EXPECT_EQ(std::nullopt, ParseEndpoint(text)) << text;
  }
}

}  // namespace

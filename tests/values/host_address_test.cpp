// The network's services are defined here, so that each of them can fail.
#include "values/host_address.h"

#include "base/utf8.h"
#include "platform/debug.h"
#include "platform/network.h"
#include "tests/printing.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

struct FakeNetwork {
  platform::SocketVersion version{0, 1, 1};
  platform::HostAnswer name{0, "terminal"};
  platform::HostAnswer address{0, "10.0.0.7"};
  std::vector<std::string> calls;
  std::vector<WideString> debugLines;
};

FakeNetwork network;

}  // namespace

namespace platform {

SocketVersion StartSockets(std::uint16_t wantedVersion) {
  network.calls.push_back("start " + std::to_string(wantedVersion));
  return network.version;
}

void StopSockets() { network.calls.push_back("stop"); }

HostAnswer HostName(std::size_t capacity) {
  network.calls.push_back("name " + std::to_string(capacity));
  return network.name;
}

HostAnswer FirstAddressOf(const std::string& hostName) {
  network.calls.push_back("address " + hostName);
  return network.address;
}

void DebugOutput(WideStringView line) { network.debugLines.emplace_back(line); }
void KernelDebugOutput(WideStringView line) { network.debugLines.emplace_back(line); }

}  // namespace platform

namespace values {
namespace {

using Calls = std::vector<std::string>;
using Lines = std::vector<WideString>;

class HostAddress : public testing::Test {
 protected:
  HostAddress() { network = FakeNetwork(); }
  WideString text_ = u"before";
};

TEST_F(HostAddress, IsTheFirstAddressOfTheHostsName) {
  EXPECT_EQ(GetHostIPString(text_), 0);
  EXPECT_EQ(text_, u"10.0.0.7");
  EXPECT_EQ(network.calls, (Calls{"start 514", "name 50", "address terminal", "stop"}));
  EXPECT_EQ(network.debugLines, Lines());
}

TEST_F(HostAddress, IsUnknownWithoutSockets) {
  network.version = {10091, 0, 0};
  EXPECT_EQ(GetHostIPString(text_), 1);
  EXPECT_EQ(text_, u"?");
  EXPECT_EQ(network.calls, (Calls{"start 514"}));
  EXPECT_EQ(network.debugLines, (Lines{u"WsInit: Failed WSAStartup  10091\r\n", u"GetIpAddr: failed WsInit\r\n"}));
}

TEST_F(HostAddress, IsUnknownWithSocketsOfAnotherVersion) {
  network.version = {0, 2, 3};
  EXPECT_EQ(GetHostIPString(text_), 1);
  EXPECT_EQ(text_, u"?");
  EXPECT_EQ(network.calls, (Calls{"start 514", "stop"}));
  EXPECT_EQ(network.debugLines, (Lines{u"WsInit: Wrong version  3, 2 \r\n", u"GetIpAddr: failed WsInit\r\n"}));
}

TEST_F(HostAddress, IsAQuestionMarkWithoutAName) {
  network.name = {10050, ""};
  EXPECT_EQ(GetHostIPString(text_), 0);
  EXPECT_EQ(text_, u"?");
  EXPECT_EQ(network.calls, (Calls{"start 514", "name 50", "stop"}));
  EXPECT_EQ(network.debugLines, (Lines{u"GetHostIPString: failed gethostname  10050\r\n"}));
}

TEST_F(HostAddress, IsAQuestionMarkWithoutAnAddress) {
  network.address = {11001, ""};
  EXPECT_EQ(GetHostIPString(text_), 0);
  EXPECT_EQ(text_, u"?");
  EXPECT_EQ(network.debugLines, (Lines{u"GetHostIPString: failed gethostbyname  11001\r\n"}));
}

TEST_F(HostAddress, HasAtMost21Characters) {
  network.address.text = std::string(30, '1');
  EXPECT_EQ(GetHostIPString(text_), 0);
  EXPECT_EQ(text_, WideString(21, u'1'));
}

}  // namespace
}  // namespace values

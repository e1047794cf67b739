#include "platform/network.h"

#include "platform/host/environment.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

class NetworkTest : public ::testing::Test {
 protected:
  static host::Environment MakeEnvironment() {
    host::Environment environment;
    environment.hostName = "terminal";
    environment.hostAddress = "192.168.1.50";
    return environment;
  }
  host::InstalledEnvironment installed{MakeEnvironment()};
};

TEST_F(NetworkTest, NothingIsKnownBeforeTheStart) {
  EXPECT_NE(0, HostName(100).error);
  EXPECT_NE(0, FirstAddressOf("terminal").error);
}

TEST_F(NetworkTest, TheTerminalKnowsItsNameAndAddress) {
  const SocketVersion version = StartSockets(0x0202);
  EXPECT_EQ(0, version.error);
  EXPECT_EQ(1, version.low);
  EXPECT_EQ(1, version.high);
  EXPECT_EQ("terminal", HostName(100).text);
  EXPECT_EQ("192.168.1.50", FirstAddressOf("terminal").text);
  EXPECT_NE(0, FirstAddressOf("elsewhere").error);
  EXPECT_NE(0, HostName(8).error);  // no room for the name and its end
  StopSockets();
  EXPECT_NE(0, HostName(100).error);
}

TEST_F(NetworkTest, StoppingWhatWasNotStartedIsHarmless) {
  StopSockets();
  StartSockets(0x0101);
  StartSockets(0x0101);
  StopSockets();
  EXPECT_EQ("terminal", HostName(100).text);  // started twice
  StopSockets();
  EXPECT_NE(0, HostName(100).error);
}

TEST_F(NetworkTest, AHostThatNobodyKnowsHasNoAddress) {
  StartSockets(0x0101);
  EXPECT_EQ("", FirstAddressOf("no such host").text);
  EXPECT_NE(0, FirstAddressOf("no such host").error);
  StopSockets();
}

TEST_F(NetworkTest, VersionZeroIsRefused) { EXPECT_NE(0, StartSockets(0).error); }

TEST(NetworkOfTheMachine, LooksAddressesUp) {
  StartSockets(0x0101);
  EXPECT_EQ("127.0.0.1", FirstAddressOf("127.0.0.1").text);
  EXPECT_EQ(0, HostName(256).error);
  StopSockets();
}

}  // namespace
}  // namespace platform

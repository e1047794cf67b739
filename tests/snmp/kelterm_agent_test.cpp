// kelterm --agent as a person and a manager have it at once: the menus in a text terminal, the device on the network.
#include "tests/platform/temporary_root.h"
#include "tests/simulator/text_terminal.h"
#include "tests/snmp/udp_manager.h"

#include <string>
#include <string_view>
#include <vector>

namespace tests {
namespace {

constexpr const char* kMenus = R"(<GROUP name="R"><DisplayName>Start</DisplayName>
<GROUP name="A"><DisplayName>Lines</DisplayName>
<GROUP name="P"><DisplayName>Speed</DisplayName><OID>1.3.3</OID><Type>Integer</Type><Range>0-9999</Range>
<Dependency>1.3.3|Integer|1|Refresh</Dependency></GROUP></GROUP>
<GROUP name="B"><DisplayName>Other</DisplayName><GROUP name="Q"><DisplayName>Nothing</DisplayName></GROUP></GROUP>
</GROUP>)";

bool HasSaid(const TextTerminal& terminal, std::string_view text) {
  return terminal.Output().find(text) != std::string::npos;
}

class KeltermAgent : public ::testing::Test {
 protected:
  KeltermAgent() {
    root_.Write("Windows/ovu.xml", kMenus);
    root_.Write("device.txt", "1.3.3\tInteger\t1111\n");
  }

  TextTerminal::Variables Words(const char* community, const char* writeCommunity) const {
    return {{"TERM", "xterm"},
            {"LC_ALL", "C.UTF-8"},
            {"KEL_SNMP_COMMUNITY", community},
            {"KEL_SNMP_WRITE_COMMUNITY", writeCommunity},
            {"KEL_SNMP_USER", ""}};
  }
  std::vector<std::string> On(const std::string& option) const { return {"--root", root_.Path().string(), option}; }

  TemporaryRoot root_;
};

TEST_F(KeltermAgent, WhatEitherSetsTheOtherReadsNext) {
  const std::uint16_t port = FreePort();
  TextTerminal terminal(On("--agent=127.0.0.1:" + std::to_string(port)), Words("look", "change"));
  ASSERT_TRUE(terminal.Shows("Lines")) << terminal.Output();
  terminal.Send("1");
  ASSERT_TRUE(terminal.Shows("1111")) << terminal.Output();
  UdpManager manager(port, "change");
  EXPECT_EQ(1111, manager.Get(3));
  ASSERT_TRUE(manager.Set(3, 2222));
  EXPECT_EQ("1.3.3\tInteger\t1111\n1.3.3\tInteger\t2222\n", root_.Read("device.txt"));
  // Its rule has the line read again whenever its page is shown.
  terminal.Send("\x1B");
  ASSERT_TRUE(terminal.Shows("Other")) << terminal.Output();
  terminal.Send("1");
  ASSERT_TRUE(terminal.Shows("2222")) << terminal.Output();
  terminal.Send("1");
  ASSERT_TRUE(terminal.Shows("Esc")) << terminal.Output();
  terminal.Send("3333\r");
  ASSERT_TRUE(terminal.ShowsWithout("3333", "2222")) << terminal.Output();
  EXPECT_EQ(3333, manager.Get(3));
}

TEST_F(KeltermAgent, SaysWhatItDoesNotServe) {
  const TemporaryRoot root;
  root.Write("device.txt", "sysName\tOctet String\tx\n");
  TextTerminal terminal({"--root", root.Path().string(), "--agent=127.0.0.1:0", "--display", "none"},
                        Words("look", ""));
  terminal.Wait();
  EXPECT_TRUE(HasSaid(terminal, "kelterm: device.txt: sysName is no OID that SNMP can name")) << terminal.Output();
  EXPECT_TRUE(HasSaid(terminal, " answers at 127.0.0.1:")) << terminal.Output();
}

TEST_F(KeltermAgent, WithoutWordsOrAPlaceItDoesNotStart) {
  const struct {
    const char* option;
    const char* community;
    const char* problem;
  } cases[] = {
      {"--agent=127.0.0.1:0", "", "kelterm: nobody may ask yet"},
      {"--agent=here", "look", "kelterm: --agent takes ADDRESS:PORT; an IPv6 address stands in brackets"},
      {"--agent=192.0.2.1:1161", "look", "kelterm: cannot listen on 192.0.2.1:1161: Cannot assign requested address"},
  };
  for (const auto& c : cases) {
    TextTerminal terminal(On(c.option), Words(c.community, ""), 200);
    EXPECT_EQ(2, terminal.Wait()) << c.option;
    EXPECT_TRUE(HasSaid(terminal, c.problem)) << terminal.Output();
  }
}

}  // namespace
}  // namespace tests

// The agent beside whoever else uses the device, each on a thread of its own.
#include "simulator/simulated_device.h"
#include "snmp/agent.h"
#include "snmp/net_snmp_library.h"
#include "tests/platform/temporary_root.h"
#include "tests/snmp/udp_manager.h"

#include <string>
#include <thread>
#include <vector>

namespace {

constexpr int kRounds = 100;

struct Served {
  explicit Served(const std::string& device) {
    root.Write("device.txt", device);
    store = simulator::DeviceStore::Open(root.Path() / "device.txt").store;
    std::string problem;
    auto agent = snmp::Agent::Open(*store, {{"127.0.0.1", 0, false}, {"look", "change", {}}}, problem);
    EXPECT_EQ("", problem);
    if (agent == nullptr) return;
    port = agent->Where().port;
    thread.emplace(std::move(agent));
  }

  tests::TemporaryRoot root;
  std::unique_ptr<simulator::DeviceStore> store;
  std::uint16_t port = 0;
  std::optional<snmp::AgentThread> thread;
};

TEST(AgentThread, ServesTheValuesThatThePersonHas) {
  Served served("1.3.3\tInteger\t5\n");
  simulator::LineLog effects;
  const auto device = simulator::MakeSimulatedDevice(*served.store, effects);
  tests::UdpManager manager(served.port, "change");
  EXPECT_EQ(5, manager.Get(3));
  EXPECT_EQ(platform::kOk, device->Set(u"1.3.3", u"Integer", u"-6"));
  EXPECT_EQ(-6, manager.Get(3));
  EXPECT_TRUE(manager.Set(3, 700));
  std::optional<WideString> value;
  device->Get(u"1.3.3", u"Integer", value);
  EXPECT_EQ(u"700", value);
  EXPECT_FALSE(tests::UdpManager(served.port, "look").Set(3, 8));
}

TEST(AgentThread, ThePersonAndManagersUseTheDeviceAtOnce) {
  Served served("1.3.1\tInteger\t0\n1.3.3\tInteger\t0\n1.3.4\tInteger\t0\n");
  std::vector<std::thread> managers;
  for (std::uint8_t number = 3; number <= 4; ++number) {
    managers.emplace_back([&served, number] {
      tests::UdpManager manager(served.port, "change");
      for (std::int16_t i = 1; i <= kRounds; ++i) {
        EXPECT_TRUE(manager.Set(number, i));
        EXPECT_EQ(i, manager.Get(number));
      }
    });
  }
  simulator::LineLog effects;
  const auto device = simulator::MakeSimulatedDevice(*served.store, effects);
  std::optional<WideString> value;
  for (int i = 1; i <= kRounds; ++i) {
    const WideString text = i % 2 == 0 ? u"4" : u"5";
    EXPECT_EQ(platform::kOk, device->Set(u"1.3.1", u"Integer", text));
    device->Get(u"1.3.1", u"Integer", value);
    EXPECT_EQ(text, value);
    device->Get(u"1.3.3", u"Integer", value);
  }
  for (std::thread& manager : managers) manager.join();
  device->Get(u"1.3.4", u"Integer", value);
  EXPECT_EQ(u"100", value);
}

// A person's Get that takes its time does so before it has the store.
TEST(AgentThread, IsNotHeldUpByADelayOfThePersons) {
  Served served("1.3.3\tInteger\t5\n1.3.4\tInteger\t6\tdelay=60000\n");
  tests::UdpManager manager(served.port, "change");
  simulator::LineLog effects;
  const auto device = simulator::MakeSimulatedDevice(*served.store, effects, [&manager](int milliseconds) {
    EXPECT_EQ(60000, milliseconds);
    EXPECT_TRUE(manager.Set(3, 7));
  });
  std::optional<WideString> value;
  device->Get(u"1.3.4", u"Integer", value);
  EXPECT_EQ(u"6", value);
  EXPECT_EQ(7, manager.Get(3));
}

TEST(AgentThread, EndsAtOnceWhetherAskedOrNot) {
  const snmp::NetSnmpLibrary library;  // over all rounds, as a process has it once
  for (int i = 0; i < 10; ++i) {
    Served served("1.3.3\tInteger\t5\n");
    tests::UdpManager manager(served.port, "look");
    if (i % 2 == 0) {
      EXPECT_EQ(5, manager.Get(3));
    }
  }
}

TEST(AgentThread, APlaceThatSomebodyHasIsRefused) {
  Served served("1.3.3\tInteger\t5\n");
  std::string problem;
  EXPECT_EQ(nullptr, snmp::Agent::Open(*served.store, {{"127.0.0.1", served.port, false}, {"look", "", {}}}, problem));
  EXPECT_EQ("cannot listen on 127.0.0.1:" + std::to_string(served.port) + ": Address already in use", problem);
}

}  // namespace

// The small services: what they ask of the environment, and that nothing is heard of them after a warm reset.
#include "platform/debug.h"
#include "platform/device.h"
#include "platform/host/environment.h"
#include "platform/kernel.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace platform {
namespace {

// Answers everything and counts.
class CountingDevice final : public ISnmpConfig {
 public:
  explicit CountingDevice(std::string& log) : log_(log) {}
  ResultCode Set(const WideString&, const WideString&, const WideString&) override { return Note("set "); }
  ResultCode Get(const WideString&, const WideString&, std::optional<WideString>&) override { return Note("get "); }
  ResultCode SetSpecial(const WideString&, const WideString&, const WideString&) override {
    return Note("setspecial ");
  }
  ResultCode GetSpecial(const WideString&, const WideString&, std::optional<WideString>&) override {
    return Note("getspecial ");
  }

 private:
  ResultCode Note(const char* call) {
    log_ += call;
    return kOk;
  }
  std::string& log_;
};

class ServicesTest : public ::testing::Test, private host::Observer {
 protected:
  host::Environment MakeEnvironment() {
    host::Environment environment;
    environment.observer = this;
    environment.connectDevice = [this] { return std::make_unique<CountingDevice>(log); };
    environment.tableValue = [this](const WideString&, const WideString&, const WideString&) {
      log += "table ";
      TableAnswer answer;
      answer.text = u"text";
      return answer;
    };
    return environment;
  }

  // Each call once, and how often it was answered with success.
  int CallAll(ISnmpConfig& device) {
    std::optional<WideString> text;
    int succeeded = 0;
    for (const ResultCode code : {device.Get(u"1", u"Integer", text), device.Set(u"1", u"Integer", u"1"),
                                  device.GetSpecial(u"1", u"Integer", text), device.SetSpecial(u"1", u"Integer", u"1")})
      succeeded += code == kOk ? 1 : 0;
    return succeeded;
  }

  std::string log;
  host::InstalledEnvironment installed{MakeEnvironment()};

 private:
  void Debug(WideStringView line) override { log += "debug" + std::to_string(line.size()) + " "; }
  void Pulsed(WideStringView) override {}
  void Started(WideStringView, WideStringView, std::uint32_t) override {}
  void WarmReset() override { log += "reset "; }
};

TEST_F(ServicesTest, CallsReachTheEnvironment) {
  const auto device = ConnectSnmpConfig();
  ASSERT_TRUE(device);
  EXPECT_EQ(4, CallAll(*device));
  EXPECT_EQ(u"text", GetTableValue(u"server", u"table", u"key").text);
  DebugOutput(u"12");
  KernelDebugOutput(u"123");
  EXPECT_EQ("get set getspecial setspecial table debug2 debug3 ", log);
}

TEST_F(ServicesTest, NothingIsHeardAfterAWarmReset) {
  const auto device = ConnectSnmpConfig();
  platform::WarmReset();
  EXPECT_EQ("reset ", std::exchange(log, ""));
  EXPECT_EQ(0, CallAll(*device));
  EXPECT_FALSE(ConnectSnmpConfig());
  EXPECT_EQ(u"", GetTableValue(u"server", u"table", u"key").text);
  DebugOutput(u"line");
  EXPECT_EQ("", log);
}

TEST(ServicesWithoutATerminal, AnswerAsIfNothingWereThere) {
  const host::InstalledEnvironment installed{host::Environment()};
  EXPECT_FALSE(ConnectSnmpConfig());
  EXPECT_EQ(u"", GetTableValue(u"server", u"table", u"key").text);
  DebugOutput(u"line");
  platform::WarmReset();
  EXPECT_TRUE(host::IsWarmReset());
}

TEST(ServicesWithoutATerminal, ADeviceThatCannotBeHadIsNone) {
  host::Environment environment;
  environment.connectDevice = [] { return nullptr; };
  const host::InstalledEnvironment installed{environment};
  EXPECT_FALSE(ConnectSnmpConfig());
}

}  // namespace
}  // namespace platform

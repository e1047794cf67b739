#include "simulator/simulated_device.h"

#include "tests/platform/temporary_root.h"
#include "tests/printing.h"

namespace {

using simulator::LineLog;
using Lines = std::vector<std::string>;
using Root = tests::TemporaryRoot;

TEST(SimulatedDevice, EveryCallIsOneLineOfEffects) {
  const Root root;
  root.Write("device.txt", "1.2\tInteger\t5\n1.3\tInteger\t5\tnull,readonly\n");
  auto store = simulator::DeviceStore::Open(root.Path() / "device.txt").store;
  LineLog effects;
  const auto device = simulator::MakeSimulatedDevice(*store, effects);
  std::optional<WideString> value;
  device->Get(u"1.2", u"Integer", value);
  device->Get(u"1.9", u"Integer", value);
  device->Get(u"1.3", u"Octet String", value);
  device->Set(u"1.2", u"Integer", u"a \"b\"\r\n\t\\ü");
  device->SetSpecial(u"1.3", u"Integer", u"6");
  device->GetSpecial(u"1.2", u"Integer", value);
  EXPECT_EQ((Lines{
                "get 1.2 \"Integer\" -> \"5\"",
                "get 1.9 \"Integer\" -> 0x80004005",
                "get 1.3 \"Octet String\" -> null",
                "set 1.2 \"Integer\" \"a \\\"b\\\"\\r\\n\\t\\\\ü\" -> 0x00000000",
                "setspecial 1.3 \"Integer\" \"6\" -> 0x80070005",
                "getspecial 1.2 \"Integer\" -> \"a \\\"b\\\"\\r\\n\\t\\\\ü\"",
            }),
            effects.Take());
  EXPECT_EQ(Lines{}, effects.Take());
}

TEST(SimulatedDevice, ADelayPassesBeforeTheCallAndNobodyElseWaitsForIt) {
  const Root root;
  root.Write("device.txt", "1.2\tInteger\t5\tdelay=250,readonly\n1.3\tInteger\t5\n");
  auto store = simulator::DeviceStore::Open(root.Path() / "device.txt").store;
  LineLog effects;
  int waited = 0;
  const auto device = simulator::MakeSimulatedDevice(*store, effects, [&](int milliseconds) {
    waited += milliseconds;
    // The store is free meanwhile.
    EXPECT_EQ(platform::kOk, store->Set(u"1.3", std::to_string(waited) == "250" ? u"250" : u"500"));
  });
  std::optional<WideString> value;
  device->Get(u"1.3", u"Integer", value);
  device->Get(u"1.9", u"Integer", value);
  EXPECT_EQ(0, waited);
  device->Get(u"1.2", u"Integer", value);
  EXPECT_EQ(250, waited);
  EXPECT_EQ(platform::kAccessDenied, device->Set(u"1.2", u"Integer", u"6"));
  EXPECT_EQ(500, waited);
  device->Get(u"1.3", u"Integer", value);
  EXPECT_EQ(u"500", value);
}

TEST(SimulatedDevice, TheTypeOfACallIsNotCompared) {
  const Root root;
  root.Write("device.txt", "1.2\tInteger\t5\n");
  auto store = simulator::DeviceStore::Open(root.Path() / "device.txt").store;
  LineLog effects;
  std::optional<WideString> value;
  EXPECT_EQ(platform::kOk, simulator::MakeSimulatedDevice(*store, effects)->Get(u"1.2", u"Hex", value));
  EXPECT_EQ(u"5", value);
}

TEST(SimulatedDevice, OnlyTheOnePropertyServerAnswers) {
  using Stage = platform::TableAnswer::Stage;
  const Root root;
  root.Write("tables.txt", "Ranges\tBaud\t1-9\n");
  simulator::PropertyTables tables;
  ASSERT_EQ("", tables.Read(root.Path() / "tables.txt"));
  LineLog effects;
  const auto found = AnswerTableValue(tables, effects, u"Valtorix.ConfigProperty", u"Ranges", u"Baud");
  EXPECT_EQ(Stage::kCalled, found.stage);
  EXPECT_EQ(platform::kOk, found.code);
  EXPECT_EQ(u"1-9", found.text);
  const auto missing = AnswerTableValue(tables, effects, u"Valtorix.ConfigProperty", u"Ranges", u"Parity");
  EXPECT_EQ(Stage::kCalled, missing.stage);
  EXPECT_EQ(platform::kFailed, missing.code);
  EXPECT_EQ(u"", missing.text);
  EXPECT_EQ(Stage::kNoServer, AnswerTableValue(tables, effects, u"Other", u"Ranges", u"Baud").stage);
  EXPECT_EQ((Lines{"table Ranges Baud -> \"1-9\"", "table Ranges Parity -> 0x80004005"}), effects.Take());
}

TEST(Effects, TheOtherLinesReadAsTheyHappened) {
  EXPECT_EQ("pulse WlanChanged", simulator::PulseLine(u"WlanChanged"));
  EXPECT_EQ("start \"KelWrite2Flash.exe\" \"/v\" -> 0x00000002", simulator::StartLine(u"KelWrite2Flash.exe", u"/v", 2));
  EXPECT_EQ("warm reset", simulator::WarmResetLine());
  EXPECT_EQ("exit 0", simulator::ExitLine(0));
}

TEST(LineLog, NothingIsKeptWhenNobodyTakesIt) {
  LineLog log(false);
  log.Add("x");
  EXPECT_EQ(Lines{}, log.Take());
}

}  // namespace

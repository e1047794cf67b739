#include "values/device_access.h"

#include "tests/printing.h"
#include "tests/support/fake_device.h"
#include "tests/support/test_terminal.h"

#include <gtest/gtest.h>

namespace values {
namespace {

using Lines = std::vector<WideString>;

constexpr const char16_t* kSpecial = u"1.3.6.1.4.1.4242.10.5.1.2.0";

class DeviceAccessTest : public testing::Test {
 protected:
  tests::TestTerminal terminal_;
  tests::FakeDevice device_;
  DeviceAccess access_{device_.Connector()};
  WideString value_ = u"before";
};

TEST_F(DeviceAccessTest, TheConnectionIsMadeOnFirstUseAndKept) {
  EXPECT_EQ(device_.connections, 0);
  EXPECT_NE(access_.Interface(), nullptr);
  EXPECT_NE(access_.Interface(), nullptr);
  EXPECT_EQ(device_.connections, 1);
  EXPECT_EQ(terminal_.TakeSystemBoxes(), Lines());
}

TEST_F(DeviceAccessTest, AReleasedConnectionIsMadeAnew) {
  access_.Interface();
  access_.Release();
  EXPECT_NE(access_.Interface(), nullptr);
  EXPECT_EQ(device_.connections, 2);
}

TEST_F(DeviceAccessTest, WithoutADeviceTheUserIsToldAndTheNextUseTriesAgain) {
  device_.reachable = false;
  EXPECT_EQ(access_.Interface(), nullptr);
  EXPECT_EQ(access_.DoSnmpGet(u"1.2", u"Integer", value_), platform::kFalse);
  EXPECT_EQ(value_, u"");
  EXPECT_EQ(terminal_.TakeSystemBoxes(),
            (Lines{u"Error: Cannot get SNMP Interface", u"Error: Cannot get SNMP Interface"}));
  device_.reachable = true;
  EXPECT_NE(access_.Interface(), nullptr);
  EXPECT_EQ(device_.connections, 3);
  EXPECT_EQ(terminal_.TakeDebugLines(), Lines());
}

TEST_F(DeviceAccessTest, WhatIsReadAheadIsSaidAsSoonAsThereIsADevice) {
  int asked = 0;
  const auto settings = [&asked] {
    ++asked;
    return std::vector<platform::Setting>{{u"1.2", u"Integer"}};
  };
  {
    const ReadingAhead ahead(access_, settings);
    EXPECT_EQ(0, device_.connections);
    device_.reachable = false;
    access_.Interface();
    EXPECT_EQ(0, asked);
    device_.reachable = true;
    access_.Interface();
    access_.Interface();
    EXPECT_EQ(1, asked);
    EXPECT_EQ((Lines{u"get 1.2 Integer"}), device_.ahead);
    EXPECT_EQ(0, device_.timesAheadEnded);
  }
  EXPECT_EQ(1, device_.timesAheadEnded);
  const ReadingAhead again(access_, settings);
  EXPECT_EQ(2, asked);
  access_.Release();
  access_.Interface();
  EXPECT_EQ(3, asked);
}

TEST_F(DeviceAccessTest, ReadingAheadThatBreaksDownIsNoHarm) {
  access_.Interface();
  const ReadingAhead ahead(access_, []() -> std::vector<platform::Setting> { throw std::bad_alloc(); });
  device_.Put(u"1.2", u"5");
  EXPECT_EQ(access_.DoSnmpGet(u"1.2", u"Integer", value_), platform::kOk);
  EXPECT_EQ(terminal_.TakeDebugLines(), (Lines{u"EXCEPTION: DeviceAccess::ReadAhead()\r\n"}));
}

TEST_F(DeviceAccessTest, AReadGivesTheDevicesText) {
  device_.Put(u"1.2", u"5");
  EXPECT_EQ(access_.DoSnmpGet(u"1.2", u"Integer", value_), platform::kOk);
  EXPECT_EQ(value_, u"5");
  EXPECT_EQ(device_.TakeLog(), (Lines{u"get 1.2 Integer"}));
  EXPECT_EQ(terminal_.TakeDebugLines(), Lines());
}

TEST_F(DeviceAccessTest, AReadWithoutAnOidOrATypeCallsNothing) {
  EXPECT_EQ(access_.DoSnmpGet(u"", u"Integer", value_), platform::kFalse);
  EXPECT_EQ(access_.DoSnmpGet(u"1.2", u"", value_), platform::kFalse);
  EXPECT_EQ(value_, u"");
  EXPECT_EQ(device_.TakeLog(), Lines());
  EXPECT_EQ(terminal_.TakeDebugLines(), Lines());
}

TEST_F(DeviceAccessTest, AFailedReadIsEmptyAndLeavesADebugLine) {
  device_[u"1.2"].getResult = platform::kAccessDenied;
  EXPECT_EQ(access_.DoSnmpGet(u"1.2", u"Integer", value_), platform::kAccessDenied);
  EXPECT_EQ(value_, u"");
  EXPECT_EQ(terminal_.TakeDebugLines(), (Lines{u"FAILED: CKelConfigApp::DoSnmpGet 1.2 Integer\r\n"}));
}

TEST_F(DeviceAccessTest, AReadWithoutATextSucceedsWithAnEmptyValue) {
  device_[u"1.2"].text.reset();
  EXPECT_EQ(access_.DoSnmpGet(u"1.2", u"Integer", value_), platform::kOk);
  EXPECT_EQ(value_, u"");
  EXPECT_EQ(terminal_.TakeDebugLines(), (Lines{u"FAILED: CKelConfigApp::DoSnmpGet 1.2 Integer\r\n"}));
}

TEST_F(DeviceAccessTest, AReadThatBreaksDownLeavesADebugLine) {
  device_[u"1.2"].throws = true;
  EXPECT_EQ(access_.DoSnmpGet(u"1.2", u"Integer", value_), platform::kFalse);
  EXPECT_EQ(value_, u"");
  EXPECT_EQ(terminal_.TakeDebugLines(), (Lines{u"EXCEPTION: CKelConfigApp::DoSnmpGet 1.2 Integer\r\n"}));
}

TEST_F(DeviceAccessTest, TheSpecialOidsAreComparedExactly) {
  EXPECT_TRUE(IsSpecialOid(kSpecial));
  EXPECT_TRUE(IsSpecialOid(u"1.3.6.1.4.1.4242.10.5.1.6.0"));
  EXPECT_TRUE(IsSpecialOid(u"1.3.6.1.4.1.4242.10.5.1.3.0"));
  EXPECT_FALSE(IsSpecialOid(u"1.3.6.1.4.1.4242.10.5.1.2.0 "));
  EXPECT_FALSE(IsSpecialOid(u"1.3.6.1.4.1.4242.10.5.1.4.0"));
}

TEST_F(DeviceAccessTest, ASpecialOidTakesTheAlternateOperationsButNotInTheGeneralRead) {
  device_.Put(kSpecial, u"5");
  std::optional<WideString> text;
  EXPECT_EQ(access_.Get(kSpecial, u"Integer", text), platform::kOk);
  EXPECT_EQ(text, u"5");
  EXPECT_EQ(access_.Set(kSpecial, u"Integer", u"6"), platform::kOk);
  access_.DoSnmpGet(kSpecial, u"Integer", value_);
  EXPECT_EQ(value_, u"6");
  const WideString oid = kSpecial;
  EXPECT_EQ(device_.TakeLog(), (Lines{u"getspecial " + oid + u" Integer", u"setspecial " + oid + u" Integer 6",
                                      u"get " + oid + u" Integer"}));
}

TEST_F(DeviceAccessTest, TheActiveProfileStandsForTheStarWhereThePropertySaysSo) {
  device_.Put(u"cfg|80211PM|ActiveProfile", u"Work");
  AttributeMap attributes;
  EXPECT_EQ(access_.FillOid(u"cfg|*|SSID", attributes), u"cfg|*|SSID");
  attributes.Set(TextId::kFillOid, u"profile");
  EXPECT_EQ(access_.FillOid(u"cfg|*|SSID", attributes), u"cfg|*|SSID");
  EXPECT_EQ(device_.TakeLog(), Lines());

  attributes.Set(TextId::kFillOid, u"Profile");
  EXPECT_EQ(access_.FillOid(u"cfg|*|SSID", attributes), u"cfg|Work|SSID");
  EXPECT_EQ(device_.TakeLog(), (Lines{u"get cfg|80211PM|ActiveProfile Octet String"}));
  EXPECT_EQ(access_.FillOid(u"cfg|SSID", attributes), u"cfg|SSID");
  EXPECT_EQ(device_.TakeLog(), Lines());
}

}  // namespace
}  // namespace values

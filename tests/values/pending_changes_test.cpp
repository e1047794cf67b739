#include "values/pending_changes.h"

#include "tests/support/fake_boxes.h"
#include "tests/values/property_fixture.h"

#include <gtest/gtest.h>

namespace values {
namespace {

using tests::Lines;

class FakeErrorTexts final : public ErrorTexts {
 public:
  std::map<WideString, WideString, std::less<>> texts;
  WideString ErrorTextOf(WideStringView oid) override {
    const auto found = texts.find(oid);
    return found == texts.end() ? WideString() : found->second;
  }
};

class PendingChanges : public tests::PropertyTest {
 protected:
  int Submit(ChangeList changes) {
    changes_ = std::move(changes);
    return Submit();
  }
  int Submit() {
    return SnmpSetChanges(changes_, status_, {access_, descriptors_, boxes_, errors_, nullptr, written_});
  }

  static PendingChange Change(WideStringView oid, WideStringView type, WideStringView text,
                              KeyKind kind = KeyKind::kWepKey) {
    return {WideString(oid), WideString(type), PropertyValue::OfText(WideString(text)), kind};
  }

  ChangeList changes_;
  int status_ = 77;
  bool written_ = false;
  tests::FakeBoxes boxes_;
  FakeErrorTexts errors_;
};

TEST_F(PendingChanges, AreSentInOrderAndGone) {
  device_.Put(u"1", u"");
  device_.Put(u"2", u"");
  EXPECT_EQ(Submit({Change(u"1", u"Octet String", u"a"),
                    Change(u"2", u"Integer", u"5"),
                    {u"1", u"Octet String", PropertyValue()}}),
            0);
  EXPECT_EQ(device_.TakeLog(), (Lines{u"set 1 Octet String a", u"set 2 Integer 5", u"set 1 Octet String "}));
  EXPECT_TRUE(changes_.empty());
  EXPECT_EQ(status_, 0);
  EXPECT_TRUE(written_);
  EXPECT_EQ(boxes_.TakeShown(), Lines());
  EXPECT_EQ(terminal_.TakeDebugLines(), Lines());
}

TEST_F(PendingChanges, AnEmptyListTouchesNothing) {
  EXPECT_EQ(Submit({}), 0);
  EXPECT_EQ(status_, 0);
  EXPECT_FALSE(written_);
  EXPECT_EQ(device_.connections, 0);
}

TEST_F(PendingChanges, WithoutADeviceTheListIsKept) {
  device_.reachable = false;
  EXPECT_EQ(Submit({Change(u"1", u"Integer", u"5")}), 0);
  EXPECT_EQ(status_, 0);
  EXPECT_EQ(changes_.size(), 1u);
  EXPECT_FALSE(written_);
  EXPECT_EQ(terminal_.TakeSystemBoxes(), (Lines{u"Error: Cannot get SNMP Interface"}));
}

TEST_F(PendingChanges, WithoutAnOidOrForAPseudoOidNothingIsSent) {
  EXPECT_EQ(Submit({Change(u"", u"Integer", u"5"), Change(u"_Local", u"Hex", u"x")}), 0);
  EXPECT_EQ(device_.TakeLog(), Lines());
  EXPECT_FALSE(written_);
  EXPECT_EQ(boxes_.TakeShown(), Lines());
}

TEST_F(PendingChanges, AnAddressIsSentDotted) {
  device_.Put(u"1", u"");
  Submit({{u"1", u"IP Address", PropertyValue::OfInteger(0)},
          {u"1", u"IP Address", PropertyValue::OfInteger(static_cast<std::int32_t>(0xC0A80001))},
          Change(u"1", u"IP Address", u"258"),
          Change(u"1", u"ip address", u"258")});
  EXPECT_EQ(device_.TakeLog(), (Lines{u"set 1 IP Address 0.0.0.0", u"set 1 IP Address 192.168.0.1",
                                      u"set 1 IP Address 0.0.1.2", u"set 1 ip address 258"}));
}

TEST_F(PendingChanges, KeysAreCheckedAndConvertedByTheirKind) {
  device_.Put(u"1", u"");
  Submit({Change(u"1", u"Hex", u"abcde", KeyKind::kWepKey), Change(u"1", u"Hex", u"0x12abcdef90", KeyKind::kWepKey),
          Change(u"1", u"Hex", u"abcde", KeyKind::kWepKeyAsTyped),
          Change(u"1", u"Hex32", u"passphrase", KeyKind::kPreSharedKey),
          Change(u"1", u"Hex32", u"passphrase", KeyKind::kPreSharedKeyAsTyped),
          Change(u"1", u"Hex", u"anything at all", KeyKind::kNoKey),
          Change(u"1", u"hex", u"anything", KeyKind::kWepKey), Change(u"1", u"Password", u"abc", KeyKind::kWepKey)});
  EXPECT_EQ(device_.TakeLog(), (Lines{u"set 1 Hex 6162636465", u"set 1 Hex 12ABCDEF90", u"set 1 Hex abcde",
                                      u"set 1 Hex32 70617373706872617365", u"set 1 Hex32 passphrase",
                                      u"set 1 Hex anything at all", u"set 1 hex anything", u"set 1 Password abc"}));
  EXPECT_EQ(boxes_.TakeShown(), Lines());
}

TEST_F(PendingChanges, ARejectedKeyAloneIsAFailure) {
  device_.Put(u"1", u"before");
  EXPECT_EQ(Submit({Change(u"1", u"Hex", u"abcd")}), 1);
  EXPECT_EQ(boxes_.TakeShown(), (Lines{u"Error: WEP Key must be 5 or 13 characters. [48]"}));
  EXPECT_EQ(device_.TakeLog(), Lines());
  EXPECT_FALSE(written_);
  EXPECT_TRUE(changes_.empty());
  EXPECT_EQ(terminal_.TakeDebugLines(), Lines());
}

TEST_F(PendingChanges, ARejectedKeyAmongOthersIsSkippedAndTheOthersDecide) {
  device_.Put(u"1", u"");
  EXPECT_EQ(Submit({Change(u"1", u"Hex32", u"short", KeyKind::kPreSharedKey), Change(u"1", u"Integer", u"5")}), 0);
  EXPECT_EQ(boxes_.TakeShown(), (Lines{u"Error: Pass phrase must be from 8 to 63 characters. [48]"}));
  EXPECT_EQ(device_.TakeLog(), (Lines{u"set 1 Integer 5"}));

  device_[u"1"].setResult = platform::kFailed;
  EXPECT_EQ(Submit({Change(u"1", u"Hex", u"short"), Change(u"1", u"Hex", u"abc"), Change(u"1", u"Integer", u"5")}), 1);
}

TEST_F(PendingChanges, ARefusedValueIsShownAndTheNextIsTried) {
  device_.Put(u"1", u"before");
  device_[u"1"].setResult = platform::kAccessDenied;
  device_.Put(u"2", u"before");
  EXPECT_EQ(Submit({Change(u"1", u"Integer", u"5"), Change(u"2", u"Integer", u"6")}), 1);
  EXPECT_EQ(boxes_.TakeShown(), (Lines{u"Error: An error occurred.  Change was not saved. [48]"}));
  EXPECT_EQ(terminal_.TakeDebugLines(), (Lines{u"FAILED: SNMPSet  hr[80070005] OID[1] Value[5] Type[Integer])\r\n"}));
  EXPECT_EQ(device_.TextOf(u"1"), u"before");
  EXPECT_EQ(device_.TextOf(u"2"), u"6");
  EXPECT_TRUE(written_);
  EXPECT_TRUE(changes_.empty());
}

TEST_F(PendingChanges, APropertysOwnErrorTextReplacesTheGeneralOne) {
  device_[u"1"].setResult = platform::kFailed;
  errors_.texts[u"1"] = u"The radio is off.";
  EXPECT_EQ(Submit({Change(u"1", u"Integer", u"5")}), 1);
  EXPECT_EQ(boxes_.TakeShown(), (Lines{u"Error: The radio is off. [48]"}));
  EXPECT_FALSE(written_);
}

TEST_F(PendingChanges, EverySuccessCodeCounts) {
  device_[u"1"].setResult = platform::kFalse;
  EXPECT_EQ(Submit({Change(u"1", u"Integer", u"5")}), 0);
  EXPECT_TRUE(written_);
}

TEST_F(PendingChanges, ASpecialOidTakesTheAlternateOperation) {
  device_.Put(u"1.3.6.1.4.1.4242.10.5.1.3.0", u"");
  Submit({Change(u"1.3.6.1.4.1.4242.10.5.1.3.0", u"Integer", u"5"),
          Change(u"1.3.6.1.4.1.4242.10.5.1.3.0 ", u"Integer", u"5")});
  EXPECT_EQ(device_.TakeLog(), (Lines{u"setspecial 1.3.6.1.4.1.4242.10.5.1.3.0 Integer 5",
                                      u"set 1.3.6.1.4.1.4242.10.5.1.3.0  Integer 5"}));
}

TEST_F(PendingChanges, TheActiveProfileStandsForTheStarOfAProfileProperty) {
  device_.Put(u"cfg|80211PM|ActiveProfile", u"Work");
  device_.Put(u"cfg|Work|SSID", u"old");
  device_.Put(u"cfg|*|Plain", u"old");
  Make({{u"OID", u"cfg|*|SSID"}, {u"Type", u"Octet String"}, {u"FillOID", u"Profile"}});
  Make({{u"OID", u"cfg|*|Plain"}, {u"Type", u"Octet String"}});
  device_.TakeLog();
  EXPECT_EQ(Submit({Change(u"cfg|*|SSID", u"Octet String", u"new"), Change(u"cfg|*|Plain", u"Octet String", u"new")}),
            0);
  EXPECT_EQ(device_.TakeLog(), (Lines{u"get cfg|80211PM|ActiveProfile Octet String",
                                      u"set cfg|Work|SSID Octet String new", u"set cfg|*|Plain Octet String new"}));
}

TEST_F(PendingChanges, AnErrorTextIsAskedForByTheOidOfTheConfiguration) {
  device_.Put(u"cfg|80211PM|ActiveProfile", u"Work");
  device_.Put(u"cfg|Work|SSID", u"old");
  device_[u"cfg|Work|SSID"].setResult = platform::kFailed;
  errors_.texts[u"cfg|*|SSID"] = u"No such network.";
  Make({{u"OID", u"cfg|*|SSID"}, {u"Type", u"Octet String"}, {u"FillOID", u"Profile"}});
  EXPECT_EQ(Submit({Change(u"cfg|*|SSID", u"Octet String", u"new")}), 1);
  EXPECT_EQ(boxes_.TakeShown(), (Lines{u"Error: No such network. [48]"}));
  EXPECT_EQ(terminal_.TakeDebugLines(),
            (Lines{u"FAILED: SNMPSet  hr[80004005] OID[cfg|Work|SSID] Value[new] Type[Octet String])\r\n"}));
}

TEST_F(PendingChanges, ASetThatBreaksDownIsAFailureAndTheNextIsTried) {
  device_[u"1"].throws = true;
  device_.Put(u"2", u"before");
  EXPECT_EQ(Submit({Change(u"1", u"Integer", u"5"), Change(u"2", u"Integer", u"6")}), 1);
  EXPECT_EQ(terminal_.TakeDebugLines(), (Lines{u"EXCEPTION: SNMPSet OID[1]\r\n"}));
  EXPECT_EQ(device_.TextOf(u"2"), u"6");
}

TEST_F(PendingChanges, OnlyATakenValueCeasesToBeChanged) {
  PropertyDescriptor& property = MakeWithValue(u"Integer", u"5");
  property.SetNewValue(PropertyValue::OfInteger(6));
  property.SetChanged(true);
  device_[u"1.2.3"].setResult = platform::kFailed;
  Submit({Change(u"1.2.3", u"Integer", u"6")});
  EXPECT_TRUE(property.IsChanged());
  EXPECT_EQ(property.GetValue(), PropertyValue::OfInteger(6));
  device_[u"1.2.3"].setResult = platform::kOk;
  Submit({Change(u"1.2.3", u"Integer", u"6")});
  EXPECT_FALSE(property.IsChanged());
}

// Asks for another change while the box of a failure is up.
class BusyBoxes final : public MessageBoxes {
 public:
  explicit BusyBoxes(ChangeList& changes) : changes_(changes) {}
  int Show(WideStringView, WideStringView, int) override {
    EXPECT_FALSE(platform::host::IsWaitCursorShown());
    changes_.push_back({u"2", u"Integer", PropertyValue::OfInteger(1)});
    return 0;
  }

 private:
  ChangeList& changes_;
};

TEST_F(PendingChanges, WhatIsRecordedMeanwhileWaitsForTheNextRunAndBoxesStandWithoutAWaitCursor) {
  BusyBoxes boxes(changes_);
  changes_.push_back(Change(u"1", u"Integer", u"5"));
  EXPECT_EQ(SnmpSetChanges(changes_, status_, {access_, descriptors_, boxes, errors_, nullptr, written_}), 1);
  ASSERT_EQ(changes_.size(), 1u);
  EXPECT_EQ(changes_[0].oid, u"2");
  EXPECT_FALSE(platform::host::IsWaitCursorShown());
}

TEST(EventNames, HoldEachNameOnceInOrder) {
  EventNames events;
  events.Add(u"B");
  events.Add(u"A");
  events.Add(u"");
  events.Add(u"B");
  events.Add(u"b");
  EXPECT_EQ(events.Names(), (Lines{u"B", u"A", u"b"}));
  events.Clear();
  EXPECT_EQ(events.Names(), Lines());
}

}  // namespace
}  // namespace values

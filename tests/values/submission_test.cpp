#include "values/submission.h"

#include "tests/support/fake_boxes.h"
#include "tests/values/property_fixture.h"

#include <gtest/gtest.h>

namespace values {
namespace {

using tests::Lines;

// "OID taken" and "OID refused" as each change is settled.
class FakeHost final : public SubmitHost {
 public:
  std::map<WideString, WideString, std::less<>> texts;
  Lines settled;

  WideString ErrorTextOf(WideStringView oid) override {
    const auto found = texts.find(oid);
    return found == texts.end() ? WideString() : found->second;
  }
  void Started() override { settled.emplace_back(u"started"); }
  void Settled(const PendingChange& change, bool taken) override {
    settled.push_back(change.oid + (taken ? u" taken" : u" refused"));
  }
};

class Submission : public tests::PropertyTest {
 protected:
  int Submit(ChangeList changes) {
    changes_ = std::move(changes);
    return Submit();
  }
  int Submit() { return SnmpSetChanges(changes_, status_, {access_, descriptors_, boxes_, host_, written_}); }

  static PendingChange Change(WideStringView oid, WideStringView type, WideStringView text,
                              KeyKind kind = KeyKind::kWepKey) {
    return {WideString(oid), WideString(type), PropertyValue::OfText(WideString(text)), kind};
  }

  ChangeList changes_;
  int status_ = 77;
  bool written_ = false;
  tests::FakeBoxes boxes_;
  FakeHost host_;
};

TEST_F(Submission, AreSentInOrderAndGone) {
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

TEST_F(Submission, AnEmptyListTouchesNothing) {
  EXPECT_EQ(Submit({}), 0);
  EXPECT_EQ(status_, 0);
  EXPECT_FALSE(written_);
  EXPECT_EQ(device_.connections, 0);
}

TEST_F(Submission, WithoutADeviceTheListIsKept) {
  device_.reachable = false;
  EXPECT_EQ(Submit({Change(u"1", u"Integer", u"5")}), 0);
  EXPECT_EQ(status_, 0);
  EXPECT_EQ(changes_.size(), 1u);
  EXPECT_FALSE(written_);
  EXPECT_EQ(host_.settled, Lines());
  EXPECT_EQ(terminal_.TakeSystemBoxes(), (Lines{u"Error: Cannot get SNMP Interface"}));
}

TEST_F(Submission, WithoutAnOidOrForAPseudoOidNothingIsSent) {
  EXPECT_EQ(Submit({Change(u"", u"Integer", u"5"), Change(u"_Local", u"Hex", u"x")}), 0);
  EXPECT_EQ(device_.TakeLog(), Lines());
  EXPECT_FALSE(written_);
  EXPECT_EQ(boxes_.TakeShown(), Lines());
}

TEST_F(Submission, AnAddressIsSentDotted) {
  device_.Put(u"1", u"");
  Submit({{u"1", u"IP Address", PropertyValue::OfInteger(0)},
          {u"1", u"IP Address", PropertyValue::OfInteger(static_cast<std::int32_t>(0xC0A80001))},
          Change(u"1", u"IP Address", u"258"),
          Change(u"1", u"ip address", u"258")});
  EXPECT_EQ(device_.TakeLog(), (Lines{u"set 1 IP Address 0.0.0.0", u"set 1 IP Address 192.168.0.1",
                                      u"set 1 IP Address 0.0.1.2", u"set 1 ip address 258"}));
}

TEST_F(Submission, KeysAreCheckedAndConvertedByTheirKind) {
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

TEST_F(Submission, ARejectedKeyAloneIsAFailure) {
  device_.Put(u"1", u"before");
  EXPECT_EQ(Submit({Change(u"1", u"Hex", u"abcd")}), 1);
  EXPECT_EQ(boxes_.TakeShown(), (Lines{u"Error: WEP Key must be 5 or 13 characters. [48]"}));
  EXPECT_EQ(device_.TakeLog(), Lines());
  EXPECT_FALSE(written_);
  EXPECT_TRUE(changes_.empty());
  EXPECT_EQ(terminal_.TakeDebugLines(), Lines());
}

TEST_F(Submission, ARejectedKeyAmongOthersIsSkippedAndTheOthersDecide) {
  device_.Put(u"1", u"");
  EXPECT_EQ(Submit({Change(u"1", u"Hex32", u"short", KeyKind::kPreSharedKey), Change(u"1", u"Integer", u"5")}), 0);
  EXPECT_EQ(boxes_.TakeShown(), (Lines{u"Error: Pass phrase must be from 8 to 63 characters. [48]"}));
  EXPECT_EQ(device_.TakeLog(), (Lines{u"set 1 Integer 5"}));

  device_[u"1"].setResult = platform::kFailed;
  EXPECT_EQ(Submit({Change(u"1", u"Hex", u"short"), Change(u"1", u"Hex", u"abc"), Change(u"1", u"Integer", u"5")}), 1);
}

TEST_F(Submission, ARefusedValueIsShownAndTheNextIsTried) {
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

TEST_F(Submission, APropertysOwnErrorTextReplacesTheGeneralOne) {
  device_[u"1"].setResult = platform::kFailed;
  host_.texts[u"1"] = u"The radio is off.";
  EXPECT_EQ(Submit({Change(u"1", u"Integer", u"5")}), 1);
  EXPECT_EQ(boxes_.TakeShown(), (Lines{u"Error: The radio is off. [48]"}));
  EXPECT_FALSE(written_);
}

TEST_F(Submission, EverySuccessCodeCounts) {
  device_[u"1"].setResult = platform::kFalse;
  EXPECT_EQ(Submit({Change(u"1", u"Integer", u"5")}), 0);
  EXPECT_TRUE(written_);
}

TEST_F(Submission, ASpecialOidTakesTheAlternateOperation) {
  device_.Put(u"1.3.6.1.4.1.4242.10.5.1.3.0", u"");
  Submit({Change(u"1.3.6.1.4.1.4242.10.5.1.3.0", u"Integer", u"5"),
          Change(u"1.3.6.1.4.1.4242.10.5.1.3.0 ", u"Integer", u"5")});
  EXPECT_EQ(device_.TakeLog(), (Lines{u"setspecial 1.3.6.1.4.1.4242.10.5.1.3.0 Integer 5",
                                      u"set 1.3.6.1.4.1.4242.10.5.1.3.0  Integer 5"}));
}

TEST_F(Submission, TheActiveProfileStandsForTheStarOfAProfileProperty) {
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

TEST_F(Submission, ARefusedSecretIsLoggedAsItsLineShowsIt) {
  device_.Put(u"1", u"");
  device_[u"1"].setResult = platform::kFailed;
  Make({{u"OID", u"1"}, {u"Type", u"Password"}});
  EXPECT_EQ(Submit({Change(u"1", u"Password", u"geheim")}), 1);
  EXPECT_EQ(terminal_.TakeDebugLines(),
            (Lines{u"FAILED: SNMPSet  hr[80004005] OID[1] Value[******] Type[Password])\r\n"}));
}

TEST_F(Submission, ARefusedSecretIsNoneInTheLogWhereverItStands) {
  const struct {
    std::vector<tests::KeyValues> properties;
    PendingChange change;
    WideString logged;
  } cases[] = {
      {{}, Change(u"1", u"Password", u"geheim"), u"******"},
      {{}, Change(u"1", u"Octet String", u"plain"), u"plain"},
      {{{{u"OID", u"1"}, {u"Type", u"ReaderCmd"}, {u"CmdString", u"3,2,6,2"}},
        {{u"CmdOID", u"1:1"}, {u"Ordinal", u"1"}, {u"Type", u"Octet String"}},
        {{u"CmdOID", u"1:2"}, {u"Ordinal", u"2"}, {u"Type", u"Octet String"}, {u"PassWordChar", u"*"}}},
       Change(u"1", u"ReaderCmd", u"ABgeheimCD"),
       u"AB******CD"},
      {{{{u"OID", u"1"}, {u"Type", u"ReaderCmd"}, {u"CmdString", u"2,2,9"}},
        {{u"CmdOID", u"1:2"}, {u"Ordinal", u"2"}, {u"Type", u"Octet String"}, {u"WEP", u"Hidden"}}},
       Change(u"1", u"ReaderCmd", u"ABgeheim"),
       u"AB******"},
  };
  device_[u"1"].setResult = platform::kFailed;
  for (const auto& c : cases) {
    descriptors_.clear();
    for (const tests::KeyValues& property : c.properties) Make(property);
    terminal_.TakeDebugLines();
    Submit({c.change});
    EXPECT_EQ(terminal_.TakeDebugLines(), (Lines{u"FAILED: SNMPSet  hr[80004005] OID[1] Value[" + c.logged +
                                                 u"] Type[" + c.change.type + u"])\r\n"}));
  }
}

TEST_F(Submission, AnErrorTextIsAskedForByTheOidOfTheConfiguration) {
  device_.Put(u"cfg|80211PM|ActiveProfile", u"Work");
  device_.Put(u"cfg|Work|SSID", u"old");
  device_[u"cfg|Work|SSID"].setResult = platform::kFailed;
  host_.texts[u"cfg|*|SSID"] = u"No such network.";
  Make({{u"OID", u"cfg|*|SSID"}, {u"Type", u"Octet String"}, {u"FillOID", u"Profile"}});
  EXPECT_EQ(Submit({Change(u"cfg|*|SSID", u"Octet String", u"new")}), 1);
  EXPECT_EQ(boxes_.TakeShown(), (Lines{u"Error: No such network. [48]"}));
  EXPECT_EQ(terminal_.TakeDebugLines(),
            (Lines{u"FAILED: SNMPSet  hr[80004005] OID[cfg|Work|SSID] Value[new] Type[Octet String])\r\n"}));
}

TEST_F(Submission, ASetThatBreaksDownIsAFailureAndTheNextIsTried) {
  device_[u"1"].throws = true;
  device_.Put(u"2", u"before");
  EXPECT_EQ(Submit({Change(u"1", u"Integer", u"5"), Change(u"2", u"Integer", u"6")}), 1);
  EXPECT_EQ(terminal_.TakeDebugLines(), (Lines{u"EXCEPTION: SNMPSet OID[1]\r\n"}));
  EXPECT_EQ(boxes_.TakeShown(), (Lines{u"Error: An error occurred.  Change was not saved. [48]"}));
  EXPECT_EQ(device_.TextOf(u"2"), u"6");
}

TEST_F(Submission, SaysOfEachChangeWhetherItWasTaken) {
  device_.Put(u"1", u"");
  device_.Put(u"2", u"");
  device_[u"2"].setResult = platform::kFailed;
  device_[u"3"].throws = true;
  Submit({Change(u"1", u"Integer", u"5"), Change(u"2", u"Integer", u"5"), Change(u"", u"Integer", u"5"),
          Change(u"_Local", u"Integer", u"5"), Change(u"3", u"Integer", u"5"), Change(u"1", u"Hex", u"abc"),
          Change(u"1", u"Integer", u"6")});
  EXPECT_EQ(host_.settled,
            (Lines{u"started", u"1 taken", u"2 refused", u"_Local taken", u"3 refused", u"1 refused", u"1 taken"}));
}

// Asks for another change while the box of a failure is up.
class BusyBoxes final : public MessageBoxes {
 public:
  explicit BusyBoxes(ChangeList& changes) : changes_(changes) {}
  int Show(WideStringView, WideStringView, int) override {
    changes_.push_back({u"2", u"Integer", PropertyValue::OfInteger(1)});
    return 0;
  }

 private:
  ChangeList& changes_;
};

TEST_F(Submission, WhatIsRecordedMeanwhileWaitsForTheNextRun) {
  BusyBoxes boxes(changes_);
  changes_.push_back(Change(u"1", u"Integer", u"5"));
  EXPECT_EQ(SnmpSetChanges(changes_, status_, {access_, descriptors_, boxes, host_, written_}), 1);
  ASSERT_EQ(changes_.size(), 1u);
  EXPECT_EQ(changes_[0].oid, u"2");
}

}  // namespace
}  // namespace values

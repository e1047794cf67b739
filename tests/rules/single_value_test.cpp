#include "rules/single_value.h"

#include "platform/host/registry_tree.h"
#include "tests/rules/rules_fixture.h"

namespace {

using tests::Group;
using tests::Journal;
using tests::Property;
using tests::Tag;

class SingleValueTest : public tests::RulesTest {};

TEST_F(SingleValueTest, IsStoredAtOnceAndSetsNothingElse) {
  fake_.Put(u"1", u"5");
  Build(Property("a", "1", "Integer"));
  EXPECT_EQ(platform::kOk, rules_.singleValues.SetSingleValue(u"1", u"Integer", u"6", &Item(u"a")));
  EXPECT_EQ((Journal{u"set 1 Integer 6"}), TakeJournal());
  EXPECT_EQ(u"a  <5>", Item(u"a").LineText());
  EXPECT_TRUE(changes_.empty());
}

TEST_F(SingleValueTest, APseudoOidSucceedsWithoutACall) {
  Build("");
  EXPECT_EQ(platform::kOk, rules_.singleValues.SetSingleValue(u"_Local", u"Integer", u"6", nullptr));
  EXPECT_EQ(Journal(), TakeJournal());
}

TEST_F(SingleValueTest, ASpecialOidUsesTheAlternateOperation) {
  fake_.Put(u"1.3.6.1.4.1.4242.10.5.1.6.0", u"");
  Build("");
  rules_.singleValues.SetSingleValue(u"1.3.6.1.4.1.4242.10.5.1.6.0", u"Octet String", u"x", nullptr);
  EXPECT_EQ((Journal{u"setspecial 1.3.6.1.4.1.4242.10.5.1.6.0 Octet String x"}), TakeJournal());
}

TEST_F(SingleValueTest, TheActiveProfileStandsForTheStar) {
  fake_.Put(u"cfg|80211PM|ActiveProfile", u"Home");
  fake_.Put(u"cfg|Home|SSID", u"net");
  Build(Property("a", "cfg|*|SSID", "Octet String", Tag("FillOID", "Profile")));
  rules_.singleValues.SetSingleValue(u"cfg|*|SSID", u"Octet String", u"other", &Item(u"a"));
  EXPECT_EQ((Journal{u"set cfg|Home|SSID Octet String other"}), TakeJournal());
}

TEST_F(SingleValueTest, ARefusalIsShownInTheItemsOwnWordsOrTheFixedOnes) {
  Build(Group("own", Tag("_OnError", "Try again.")) + Group("none", ""));
  const WideString fixed = u"box Error: An error occurred.  Change was not saved. [48]";
  EXPECT_EQ(platform::kFailed, rules_.singleValues.SetSingleValue(u"1", u"Integer", u"6", &Item(u"own")));
  EXPECT_EQ((Journal{u"set 1 Integer 6 refused", u"box Error: Try again. [48]"}), TakeJournal());
  rules_.singleValues.SetSingleValue(u"1", u"Integer", u"6", &Item(u"none"));
  EXPECT_EQ((Journal{u"set 1 Integer 6 refused", fixed}), TakeJournal());
  rules_.singleValues.SetSingleValue(u"1", u"Integer", u"6", nullptr);
  EXPECT_EQ((Journal{u"set 1 Integer 6 refused", fixed}), TakeJournal());
}

TEST_F(SingleValueTest, ADeviceThatBreaksDownIsARefusal) {
  fake_.Put(u"1", u"5");
  Build("");
  fake_[u"1"].throws = true;
  EXPECT_GT(0, rules_.singleValues.SetSingleValue(u"1", u"Integer", u"6", nullptr));
  EXPECT_EQ((Journal{u"box Error: An error occurred.  Change was not saved. [48]"}), TakeJournal());
  EXPECT_EQ((std::vector<WideString>{u"EXCEPTION: SNMPSet OID[1]\r\n"}), observer_.debugLines);
}

TEST_F(SingleValueTest, WithoutADeviceTheUserIsTold) {
  fake_.reachable = false;
  Build("");
  EXPECT_GT(0, rules_.singleValues.SetSingleValue(u"1", u"Integer", u"6", nullptr));
  EXPECT_EQ((Journal{u"box Error: An error occurred.  Change was not saved. [48]"}), TakeJournal());
}

TEST_F(SingleValueTest, AnErrorTextMayStandInTheRegistry) {
  using platform::host::RegistryTree;
  auto& errors = terminal_.Registry().Add(RegistryTree::kLocalMachine, u"SOFTWARE\\Errors");
  RegistryTree::SetText(errors, u"Mode", u"From the registry.");
  RegistryTree::SetText(errors, u"", u"Of the value without a name.");
  Build(Group("found", Tag("_OnError", "HKEY_LOCAL_MACHINE\\SOFTWARE\\Errors\\mode")) +
        Group("unnamed", Tag("_OnError", "HKEY_LOCAL_MACHINE\\SOFTWARE\\Errors\\")) +
        Group("missing", Tag("_OnError", "HKEY_LOCAL_MACHINE\\SOFTWARE\\Errors\\Other")) +
        Group("bare", Tag("_OnError", "HKEY_LOCAL_MACHINE")) + Group("none", "") +
        Group("mentions", Tag("_OnError", "See HKEY_LOCAL_MACHINE\\SOFTWARE\\Errors\\Mode")) +
        Property("p", "3", "Integer", Tag("_OnError", "Own text.")));
  EXPECT_EQ(u"See HKEY_LOCAL_MACHINE\\SOFTWARE\\Errors\\Mode", rules_.singleValues.GetErrorText(&Item(u"mentions")));
  EXPECT_EQ(u"From the registry.", rules_.singleValues.GetErrorText(&Item(u"found")));
  EXPECT_EQ(u"Of the value without a name.", rules_.singleValues.GetErrorText(&Item(u"unnamed")));
  EXPECT_EQ(u"", rules_.singleValues.GetErrorText(&Item(u"missing")));
  EXPECT_EQ(u"", rules_.singleValues.GetErrorText(&Item(u"bare")));
  EXPECT_EQ(u"", rules_.singleValues.GetErrorText(&Item(u"none")));
  EXPECT_EQ(u"", rules_.singleValues.GetErrorText(nullptr));
  EXPECT_EQ(u"Own text.", rules_.singleValues.ErrorTextOf(u"3"));
  EXPECT_EQ(u"", rules_.singleValues.ErrorTextOf(u"4"));
}

}  // namespace

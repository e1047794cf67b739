#include "rules/wireless.h"

#include "tests/rules/rules_fixture.h"
#include "tests/rules/wireless_oracle.h"

namespace {

using model::DisplayState;
using tests::Group;
using tests::Journal;
using tests::Property;
using tests::Tag;
using tests::WirelessCase;

constexpr const char* kAuthOid = "1.2.840.10036.1.2.1.2.2";
constexpr const char* kEncOid = "1.2.840.10036.1.5.1.1.2";
constexpr const char* kIndexOid = "1.2.840.10036.1.5.1.2.2";
constexpr const char* kMethodOid = "1.2.840.10036.4242.1.2";

// Names of items: type, auth, enc, index, value, method, setting, properties.
std::string AllItems() {
  return Property("type", "1.2.840.10036.1.1.1.10.2", "Integer", Tag("ChoiceFmt", "1#Infrastructure|2#Ad hoc")) +
         Property("auth", kAuthOid, "Integer", Tag("ChoiceFmt", "as configured")) +
         Property("enc", kEncOid, "Integer", Tag("ChoiceFmt", "as configured")) +
         Property("index", kIndexOid, "Integer") +
         Property("value", "1.2.840.10036.1.3.1.2.2", "Hex", Tag("WEP", "Hidden")) +
         Property("method", kMethodOid, "Integer", Tag("ChoiceFmt", "as configured")) +
         Property("setting", "_Network Key Setting", "Integer", Tag("ChoiceFmt", "as configured")) +
         Group("properties", Tag("DisplayName", "properties") + Tag("OID", "_Security Properties") +
                                 Property("certificate", "77", "Octet String"));
}

class WirelessTest : public tests::RulesTest {
 protected:
  void Load(const WirelessCase& values, const std::string& items = AllItems()) {
    fake_.Put(u"1.2.840.10036.1.1.1.10.2", values.networkType);
    fake_.Put(base::FromUtf8(kAuthOid), values.authentication);
    fake_.Put(base::FromUtf8(kEncOid), values.encryption);
    fake_.Put(base::FromUtf8(kIndexOid), values.keyIndex);
    fake_.Put(u"1.2.840.10036.1.3.1.2.2", u"3031323334");
    fake_.Put(base::FromUtf8(kMethodOid), values.method);
    fake_.Put(u"1.2.840.10036.1.1.1.8.2", u"0");
    fake_.Put(u"77", u"");
    Build(items);
  }

  WideString ValueOf(WideStringView item) { return Item(item).Descriptor()->GetValue().AsText(); }
  WideString ChoicesOf(WideStringView item) { return Item(item).Descriptor()->ChoiceText(); }
  bool IsHidden(WideStringView item) { return Item(item).State() == DisplayState::kNotDisplayed; }
  void SetKeySetting(WideStringView value) {
    auto* property = Item(u"setting").Descriptor();
    values::PropertyValue parsed;
    property->ParseValue(value, parsed);
    property->SetNewValue(parsed);
  }
};

// Every value in use and a foreign one of each setting.
class WirelessCouplings : public WirelessTest, public testing::WithParamInterface<const char16_t*> {
 protected:
  void Check(const WirelessCase& before, const std::string& name) {
    Load(before);
    const tests::WirelessResult expected = tests::ExpectedWireless(before, ValueOf(u"setting"));
    rules_.wireless.VerifyNetUI();
    EXPECT_EQ(expected.events, TakeJournal()) << name;
    EXPECT_EQ(expected.values.networkType, ValueOf(u"type")) << name;
    EXPECT_EQ(expected.values.authentication, ValueOf(u"auth")) << name;
    EXPECT_EQ(expected.values.encryption, ValueOf(u"enc")) << name;
    EXPECT_EQ(expected.values.keyIndex, ValueOf(u"index")) << name;
    EXPECT_EQ(expected.values.method, ValueOf(u"method")) << name;
    EXPECT_EQ(expected.keySetting, ValueOf(u"setting")) << name;
    EXPECT_EQ(expected.keyType, Item(u"value").Descriptor()->GetType()) << name;
    for (const char* item : {"auth", "enc", "setting", "method"}) {
      const auto choices = expected.choices.find(item);
      EXPECT_EQ(choices == expected.choices.end() ? u"as configured" : choices->second, ChoicesOf(base::FromUtf8(item)))
          << name << " " << item;
    }
    for (const char* item : {"type", "auth", "enc", "index", "value", "method", "setting", "properties"}) {
      const auto hidden = expected.hidden.find(item);
      EXPECT_EQ(hidden != expected.hidden.end() && hidden->second, IsHidden(base::FromUtf8(item))) << name << item;
    }
  }
};

TEST_P(WirelessCouplings, AreKeptForEveryCombination) {
  const WideString type = GetParam();
  for (const WideString auth : {u"1", u"2", u"4", u"5", u"6", u"9"}) {
    for (const WideString enc : {u"1", u"0", u"4", u"9"}) {
      for (const WideString index : {u"4", u"0", u"2"}) {
        for (const WideString method : {u"0", u"13", u"25", u"7"}) {
          const std::string name = base::ToUtf8(type + u" " + auth + u" " + enc + u" " + index + u" " + method);
          Check({type, auth, enc, index, method}, name);
          if (HasFailure()) return;
        }
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(NetworkTypes, WirelessCouplings, testing::Values(u"2", u"1", u"7"));

TEST_F(WirelessTest, WhatIsNeededIsShownAgain) {
  const struct {
    WirelessCase values;
    std::vector<WideString> shown;
  } cases[] = {
      {{u"1", u"2", u"0", u"0", u"13"}, {u"index", u"value", u"properties"}},
      {{u"1", u"2", u"0", u"4", u"0"}, {}},
      {{u"1", u"5", u"4", u"0", u"25"}, {u"value", u"properties"}},
      {{u"2", u"6", u"4", u"0", u"0"}, {u"value"}},
  };
  for (const auto& c : cases) {
    Load(c.values);
    for (const auto& item : model_.Root().Children()) item->SetState(DisplayState::kNotDisplayed);
    rules_.wireless.VerifyNetUI();
    std::vector<WideString> shown;
    for (const auto& item : model_.Root().Children()) {
      if (item->State() == DisplayState::kNormal) shown.emplace_back(item->DisplayName());
    }
    EXPECT_EQ(c.shown, shown) << base::ToUtf8(c.values.authentication);
  }
}

TEST_F(WirelessTest, AdHocTurnsWpaPskIntoOpen) {
  Load({u"2", u"5", u"4", u"0", u"13"});
  rules_.wireless.VerifyNetUI();
  EXPECT_EQ((Journal{u"set 1.2.840.10036.1.2.1.2.2 Integer 1", u"box Alert: Network Authentication changed to Open [1]",
                     u"set 1.2.840.10036.1.5.1.1.2 Integer 1", u"box Alert: Data Encryption has been disabled [1]",
                     u"set 1.2.840.10036.1.5.1.2.2 Integer 4", u"set 1.2.840.10036.4242.1.2 Integer 0",
                     u"box Alert: 802.1X authentication has been disabled [1]"}),
            TakeJournal());
  EXPECT_EQ(u"1#Disabled|0#WEP", ChoicesOf(u"enc"));
  EXPECT_EQ(u"0#Disabled", ChoicesOf(u"method"));
  EXPECT_EQ(u"auth  <Open>", Item(u"auth").LineText());
}

TEST_F(WirelessTest, InfrastructureTurnsWpaNoneIntoOpenWithOneAlert) {
  Load({u"1", u"6", u"0", u"4", u"0"});
  rules_.wireless.VerifyNetUI();
  EXPECT_EQ(
      (Journal{u"set 1.2.840.10036.1.2.1.2.2 Integer 1", u"box Alert: Network Authentication changed to Open [1]"}),
      TakeJournal());
}

TEST_F(WirelessTest, WpaTurnsDisabledIntoTkipAnd8021XIntoTls) {
  Load({u"1", u"4", u"1", u"4", u"0"});
  rules_.wireless.VerifyNetUI();
  EXPECT_EQ(
      (Journal{u"set 1.2.840.10036.1.5.1.1.2 Integer 4", u"box Alert: Data Encryption changed to TKIP [1]",
               u"set 1.2.840.10036.4242.1.2 Integer 13", u"box Alert: 802.1X authentication has been enabled [1]"}),
      TakeJournal());
  EXPECT_EQ(u"method  <TLS>", Item(u"method").LineText());
}

TEST_F(WirelessTest, WpaNoneInAdHocForcesTkipWithoutAnAlert) {
  Load({u"2", u"6", u"0", u"0", u"0"});
  rules_.wireless.VerifyNetUI();
  EXPECT_EQ((Journal{u"set 1.2.840.10036.1.5.1.1.2 Integer 4"}), TakeJournal());
}

TEST_F(WirelessTest, A8021XValueIsJudgedByItsFirstCharacter) {
  Load({u"2", u"1", u"0", u"4", u"0 or so"});
  // An integer that begins with a digit is read as its number; the text is kept by another type.
  Item(u"method").Descriptor()->SetNewValue(values::PropertyValue::OfText(u"0 or so"));
  rules_.wireless.VerifyNetUI();
  EXPECT_EQ(Journal(), TakeJournal());
  EXPECT_TRUE(IsHidden(u"properties"));

  Load({u"2", u"1", u"0", u"4", u"0"});
  Item(u"method").Descriptor()->SetNewValue(values::PropertyValue::OfText(u"13 or so"));
  rules_.wireless.VerifyNetUI();
  EXPECT_EQ(
      (Journal{u"set 1.2.840.10036.4242.1.2 Integer 0", u"box Alert: 802.1X authentication has been disabled [1]"}),
      TakeJournal());
}

TEST_F(WirelessTest, AnEditThatIsNotAppliedCounts) {
  Load({u"1", u"1", u"1", u"4", u"0"});
  Item(u"type").Descriptor()->SetNewValue(values::PropertyValue::OfInteger(2));
  rules_.wireless.VerifyNetUI();
  EXPECT_EQ(u"1#Open|2#Shared|6#WPA-None", ChoicesOf(u"auth"));
}

TEST_F(WirelessTest, ARefusedCorrectionIsShownAndTheRulesGoOnWithIt) {
  Load({u"1", u"6", u"4", u"4", u"0"});
  fake_[base::FromUtf8(kAuthOid)].setResult = platform::kAccessDenied;
  rules_.wireless.VerifyNetUI();
  EXPECT_EQ((Journal{u"set 1.2.840.10036.1.2.1.2.2 Integer 1 refused",
                     u"box Error: An error occurred.  Change was not saved. [48]",
                     u"box Alert: Network Authentication changed to Open [1]", u"set 1.2.840.10036.1.5.1.1.2 Integer 1",
                     u"box Alert: Data Encryption has been disabled [1]"}),
            TakeJournal());
  // The device still has what it had: nothing else believes in the correction. It is not tried again each time.
  EXPECT_EQ(u"6", ValueOf(u"auth"));
  EXPECT_EQ(u"1", Item(u"auth").Descriptor()->OfferedValue().AsText());
  rules_.wireless.VerifyNetUI();
  EXPECT_EQ(Journal(), TakeJournal());
}

TEST_F(WirelessTest, ReplacedChoicesRewriteTheLine) {
  Load({u"1", u"2", u"0", u"0", u"0"});
  EXPECT_EQ(u"auth  <2>", Item(u"auth").LineText());
  rules_.wireless.VerifyNetUI();
  EXPECT_EQ(u"auth  <Shared>", Item(u"auth").LineText());
  EXPECT_EQ(u"enc  <WEP>", Item(u"enc").LineText());
}

TEST_F(WirelessTest, ARefusedKeyIndexIsTriedAgainByTheUser) {
  Load({u"1", u"2", u"0", u"0", u"0"});
  SetKeySetting(u"1");
  fake_[base::FromUtf8(kIndexOid)].setResult = platform::kAccessDenied;
  for (int i = 0; i < 2; ++i) {
    rules_.wireless.SetKeyIndex();
    EXPECT_EQ(u"set 1.2.840.10036.1.5.1.2.2 Integer 4 refused", TakeJournal().front()) << i;
  }
}

TEST_F(WirelessTest, ItemsThatAreMissingAreLeftOutInSilence) {
  Load({u"2", u"5", u"4", u"0", u"13"}, Property("type", "1.2.840.10036.1.1.1.10.2", "Integer"));
  rules_.wireless.VerifyNetUI();
  EXPECT_EQ(Journal(), TakeJournal());
  EXPECT_EQ(u"5", fake_.TextOf(base::FromUtf8(kAuthOid)));

  Load({u"2", u"5", u"4", u"0", u"13"}, "");
  rules_.wireless.VerifyNetUI();
  EXPECT_EQ(Journal(), TakeJournal());
}

TEST_F(WirelessTest, PendingChangesAreSubmittedAtTheEnd) {
  Load({u"1", u"1", u"1", u"4", u"0"});
  rules_.queue.Add(u"77", u"Octet String", u"pending");
  rules_.wireless.VerifyNetUI();
  EXPECT_EQ((Journal{u"set 77 Octet String pending"}), TakeJournal());
  EXPECT_TRUE(changes_.empty());
  EXPECT_TRUE(flashWrite_);
}

TEST_F(WirelessTest, LinesThatChangeAreRewritten) {
  Load({u"1", u"2", u"0", u"0", u"0"});
  rules_.wireless.VerifyNetUI();
  EXPECT_EQ(u"setting  <Enter Key and Index>", Item(u"setting").LineText());
  EXPECT_EQ((std::vector<WideString>{u"R\\auth", u"R\\enc", u"R\\setting", u"R\\setting", u"R\\method"}),
            shell_.changedLines);
  EXPECT_EQ(u"value  <Hidden>", Item(u"value").LineText());
}

TEST_F(WirelessTest, TheKeyCheckSpeaksUpWhenAKeyIsMissing) {
  const struct {
    WideString keyIndex;
    WideString key;
    bool alert;
  } cases[] = {{u"4", u"", false}, {u"0", u"3031323334", false}, {u"0", u"", true}, {u"2", u"", true}};
  for (const auto& c : cases) {
    Load({u"1", u"2", u"0", c.keyIndex, u"0"});
    fake_.Put(u"1.2.840.10036.1.3.1.2.2", c.key);
    rules_.wireless.CheckWEPKey();
    EXPECT_EQ(c.alert ? Journal{u"box Alert: Valid network key must be entered [1]"} : Journal{}, TakeJournal());
  }
}

TEST_F(WirelessTest, TheKeyIndexFollowsTheKeySetting) {
  const WideString alert = u"box Alert: You must enter a valid WEP key or this setting will remain automatic [48]";
  const WideString set = u"set 1.2.840.10036.1.5.1.2.2 Integer ";
  const struct {
    WideString setting;
    WideString index;
    Journal journal;
  } cases[] = {
      {u"1", u"0", {set + u"4"}},
      {u"1", u"4", {set + u"4"}},
      {u"0", u"4", {set + u"0", alert}},
      {u"0", u"0", {alert}},
  };
  for (const auto& c : cases) {
    Load({u"1", u"2", u"0", c.index, u"0"});
    SetKeySetting(c.setting);
    rules_.queue.Add(u"77", u"Octet String", u"pending");
    rules_.wireless.SetKeyIndex();
    Journal expected = c.journal;
    expected.emplace_back(u"set 77 Octet String pending");
    EXPECT_EQ(expected, TakeJournal());
  }
}

TEST_F(WirelessTest, TheNetworkSettingsAreTakenOverAsTheProfileManagerStands) {
  const struct {
    std::optional<WideString> zeroConfig;  // nothing: cannot be read
    Journal journal;
  } cases[] = {
      {u"On", {u"set 1.2.840.10036.1.1.1.8.2 Integer 5677765", u"note \nApplying Network Settings"}},
      {u"", {u"set 1.2.840.10036.1.1.1.8.2 Integer 5677765", u"note \nApplying Network Settings"}},
      {std::nullopt, {u"set 1.2.840.10036.1.1.1.8.2 Integer 5677765", u"note \nApplying Network Settings"}},
      {u"Off", {u"set cfg|80211PM|ConfigureProfile Octet String Home", u"note \nApplying Profile Settings"}},
      {u"on", {}},
  };
  for (const auto& c : cases) {
    Load({u"1", u"2", u"0", u"4", u"0"});
    fake_.Put(u"cfg|80211PM|ActiveProfile", u"Home");
    fake_.Put(u"cfg|80211PM|ConfigureProfile", u"");
    fake_[u"cfg|80211PM|ZeroConfig"].text = c.zeroConfig;
    Item(u"auth").changed = true;
    Item(u"enc").changed = true;
    rules_.wireless.ApplyNetworkSettings(&Item(u"auth"));
    EXPECT_EQ(c.journal, TakeJournal());
    EXPECT_FALSE(Item(u"auth").changed || Item(u"enc").changed);
    EXPECT_EQ(model_.Root().Children().size(), shell_.changedLines.size());
  }
}

TEST_F(WirelessTest, ARefusedTakeOverUsesTheItemsOwnWords) {
  Build(Group("apply", Tag("Function", "ApplyNetworkSettings") + Tag("_OnError", "No network.")));
  rules_.wireless.ApplyNetworkSettings(&Item(u"apply"));
  EXPECT_EQ((Journal{u"set 1.2.840.10036.1.1.1.8.2 Integer 5677765 refused", u"box Error: No network. [48]",
                     u"note \nApplying Network Settings"}),
            TakeJournal());
}

TEST_F(WirelessTest, CertificatesAreImportedByASet) {
  Build(Property("import", "50.1", "Octet String"));
  fake_.Put(u"50.1", u"");
  rules_.wireless.ImportCertificates(Item(u"import"));
  EXPECT_EQ((Journal{u"set 50.1 Octet String True", u"system Success: Certificates were successfully imported."}),
            TakeJournal());
  fake_[u"50.1"].setResult = platform::kFailed;
  rules_.wireless.ImportCertificates(Item(u"import"));
  EXPECT_EQ(
      (Journal{u"set 50.1 Octet String True refused", u"box Error: An error occurred.  Change was not saved. [48]"}),
      TakeJournal());
}

// As when any other edit or command stores it.
TEST_F(WirelessTest, APropertyHasWhatACommandStored) {
  const auto command = [](const char* oid) { return Property("stored", oid, "Octet String"); };
  fake_.Put(u"1.2.840.10036.1.1.1.8.2", u"");
  Build(command("1.2.840.10036.1.1.1.8.2"));
  rules_.wireless.WEP_Properties(Item(u"stored"));
  EXPECT_EQ(u"stored  <5677766>", Item(u"stored").LineText());
  rules_.wireless.ApplyNetworkSettings(&Item(u"stored"));
  EXPECT_EQ(u"stored  <5677765>", Item(u"stored").LineText());

  fake_.Put(u"cfg|80211PM|ZeroConfig", u"Off");
  fake_.Put(u"cfg|80211PM|ActiveProfile", u"Home");
  fake_.Put(u"cfg|80211PM|ConfigureProfile", u"");
  Build(command("cfg|80211PM|ConfigureProfile"));
  rules_.wireless.ApplyNetworkSettings(&Item(u"stored"));
  EXPECT_EQ(u"stored  <Home>", Item(u"stored").LineText());

  fake_[u"50.1"].getResult = platform::kFailed;
  Build(command("50.1"));
  EXPECT_EQ(u"stored  <Unavailable>", Item(u"stored").LineText());
  rules_.wireless.ImportCertificates(Item(u"stored"));
  EXPECT_EQ(u"stored  <True>", Item(u"stored").LineText());
}

TEST_F(WirelessTest, TheWepPropertiesAreACommandValue) {
  Load({u"1", u"2", u"0", u"4", u"0"});
  rules_.wireless.WEP_Properties(Item(u"auth"));
  EXPECT_EQ((Journal{u"set 1.2.840.10036.1.1.1.8.2 Integer 5677766"}), TakeJournal());
}

class RefreshTest : public tests::RulesTest {};

TEST_F(RefreshTest, APlainPropertyIsReadAnew) {
  fake_.Put(u"1", u"5");
  Build(Property("a", "1", "Integer"));
  fake_.Put(u"1", u"6");
  calls_.logGets = true;
  rules_.wireless.RefreshEditedItem(Item(u"a"));
  EXPECT_EQ((Journal{u"get 1 Integer"}), TakeJournal());
  EXPECT_EQ(u"a  <6>", Item(u"a").LineText());
}

TEST_F(RefreshTest, AFieldRefreshesItsWholeCommandWithAllItsFields) {
  fake_.Put(u"7", u"AABBB");
  const auto field = [](const char* name, const char* number) {
    return Group(name, Tag("DisplayName", name) + Tag("CmdOID", std::string("7:") + number) +
                           Tag("Ordinal", std::string(1, static_cast<char>(number[0] + 1))) +
                           Tag("Type", "Octet String"));
  };
  Build(Property("cmd", "7", "ReaderCmd", Tag("CmdString", "2,2,3") + Tag("Ordinal", "1")) + field("f1", "1") +
        field("f2", "2"));
  EXPECT_EQ(u"f2  <BBB>", Item(u"f2").LineText());
  fake_.Put(u"7", u"XXYYY");
  calls_.logGets = true;
  rules_.wireless.RefreshEditedItem(Item(u"f1"));
  EXPECT_EQ((Journal{u"get 7 ReaderCmd"}), TakeJournal());
  EXPECT_EQ(u"f1  <XX>", Item(u"f1").LineText());
  EXPECT_EQ(u"f2  <YYY>", Item(u"f2").LineText());
}

TEST_F(RefreshTest, AfterAnEditTheFieldsAreReadUpToTheFirstMissingNumber) {
  fake_.Put(u"7", u"AABBBCC");
  const auto field = [](const char* name, const char* oid, const char* ordinal) {
    return Group(name,
                 Tag("DisplayName", name) + Tag("CmdOID", oid) + Tag("Ordinal", ordinal) + Tag("Type", "Octet String"));
  };
  Build(Property("cmd", "7", "ReaderCmd", Tag("CmdString", "3,2,3,2") + Tag("Ordinal", "1")) + field("f1", "7:1", "2") +
        field("f3", "7:3", "3"));
  fake_.Put(u"7", u"XXYYYZZ");
  rules_.wireless.RefreshEditedItem(Item(u"f1"));
  EXPECT_EQ(u"f1  <XX>", Item(u"f1").LineText());
  EXPECT_EQ(u"f3  <CC>", Item(u"f3").LineText());
}

TEST_F(RefreshTest, AnEmptyTextThatWasReadEmptiesTheValue) {
  fake_.Put(u"1", u"word");
  Build(Property("a", "1", "Octet String"));
  fake_.Put(u"1", u"");
  rules_.wireless.RefreshEditedItem(Item(u"a"));
  EXPECT_EQ(u"a  <>", Item(u"a").LineText());
}

TEST_F(RefreshTest, WithoutAnOidNothingHappens) {
  Build(Group("a", Tag("DisplayName", "a")) + Property("p", "_Local", "Integer"));
  calls_.logGets = true;
  rules_.wireless.RefreshEditedItem(Item(u"a"));
  rules_.wireless.RefreshEditedItem(Item(u"p"));
  EXPECT_EQ(Journal(), TakeJournal());
}

TEST_F(RefreshTest, AReadThatFailsKeepsTheValue) {
  fake_.Put(u"1", u"5");
  Build(Property("a", "1", "Integer"));
  fake_[u"1"].getResult = platform::kFailed;
  rules_.wireless.RefreshEditedItem(Item(u"a"));
  EXPECT_EQ(u"a  <5>", Item(u"a").LineText());
}

}  // namespace

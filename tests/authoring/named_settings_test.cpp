#include "authoring/named_settings.h"

#include "base/utf8.h"
#include "tests/authoring/storage_folder.h"

namespace {

using Texts = std::vector<std::string>;

Texts Named(std::string_view groups, WideStringView activeProfile = {}) {
  tests::StorageFolder folder;
  const auto configuration = folder.WriteMenu(groups).Load();
  Texts texts;
  for (const authoring::NamedSetting& setting : NamedSettings(*configuration, activeProfile)) {
    texts.push_back(base::ToUtf8(setting.oid) + " " + base::ToUtf8(setting.type) + (setting.isSecret ? " secret" : "") +
                    (setting.isExpected ? "" : " perhaps"));
  }
  return texts;
}

// What the wireless commands need stands behind all others.
Texts AndWireless(Texts texts) {
  texts.insert(texts.end(),
               {"1.2.840.10036.1.1.1.8.2 Integer perhaps", "cfg|80211PM|ZeroConfig Octet String perhaps",
                "cfg|80211PM|ActiveProfile Octet String perhaps", "cfg|80211PM|ConfigureProfile Octet String perhaps"});
  return texts;
}

std::string Property(const std::string& name, const std::string& oid, const std::string& type,
                     const std::string& more = {}) {
  return "<GROUP name=\"" + name + "\"><OID>" + oid + "</OID><Type>" + type + "</Type>" + more + "</GROUP>";
}

TEST(NamedSettings, AreThoseOfPropertiesEachOnceInTheOrderOfTheMenus) {
  EXPECT_EQ(
      AndWireless({"1.2 Octet String", "1.1 Bool", "1.3 Password secret", "1.4 Integer secret", "1.5 Hex secret"}),
      Named("<GROUP name=\"m\">" + Property("a", "1.2", "Octet String") + Property("b", "1.1", "Integer") + "</GROUP>" +
            Property("c", "1.3", "Password") + Property("d", "1.1", "Bool") +
            Property("e", "1.4", "Integer", "<PassWordChar>*</PassWordChar>") + Property("f", "1.5", "Hex") +
            Property("g", "_GetIPAddress", "IP Address") + "<GROUP name=\"h\"/>"));
}

TEST(NamedSettings, AreThoseOfCommandsAndOfWhatHandlersSet) {
  EXPECT_EQ(
      AndWireless({"1.1 ReaderCmd", "1.9 Bool perhaps", "1.2 ReaderCmd", "1.7 Integer"}),
      Named(Property("a", "1.1", "ReaderCmd", "<CmdString>2,2</CmdString>") +
            "<GROUP name=\"b\"><CmdOID>1.1:1</CmdOID><Type>Integer</Type></GROUP>"
            "<GROUP name=\"c\"><CmdOID>1.2:1</CmdOID><Type>Integer</Type></GROUP>"
            "<GROUP "
            "name=\"d\"><_OnExit>Rebind:1.7|Integer|1</_OnExit><_OnExit1>IfChanges:1.1|ReaderCmd|5</_OnExit1></GROUP>" +
            Property("e", "1.9", "Bool", "<Function>ImportCertificates</Function>")));
}

TEST(NamedSettings, OfProfilesAreThoseOfEachThatCanBeChosen) {
  const std::string profiles =
      Property("a", "cfg|80211PM|ActiveProfile", "Octet String", "<ChoiceFmt>one#1|two#2</ChoiceFmt>") +
      Property("b", "cfg|*|SSID", "Octet String", "<FillOID>Profile</FillOID>");
  Texts expected = {"cfg|80211PM|ActiveProfile Octet String", "cfg|one|SSID Octet String perhaps",
                    "cfg|two|SSID Octet String"};
  const Texts wireless = {"1.2.840.10036.1.1.1.8.2 Integer perhaps", "cfg|80211PM|ZeroConfig Octet String perhaps",
                          "cfg|80211PM|ConfigureProfile Octet String perhaps"};
  Texts two = expected;
  two.insert(two.end(), wireless.begin(), wireless.end());
  EXPECT_EQ(two, Named(profiles, u"two"));
  Texts three = {expected[0], expected[1], expected[2] + " perhaps", "cfg|three|SSID Octet String"};
  three.insert(three.end(), wireless.begin(), wireless.end());
  EXPECT_EQ(three, Named(profiles, u"three"));
  EXPECT_EQ(AndWireless({"cfg|*|SSID Octet String"}), Named(Property("b", "cfg|*|SSID", "Octet String")));
}

}  // namespace

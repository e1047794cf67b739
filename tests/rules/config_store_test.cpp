#include "rules/config_store.h"

#include "model/key_visits.h"
#include "rules/summary.h"
#include "tests/rules/rules_fixture.h"

#include <fstream>

namespace {

using tests::Group;
using tests::Property;
using tests::Tag;

std::string Bytes(WideStringView text) {
  std::string bytes;
  for (const char16_t unit : text) {
    bytes.push_back(static_cast<char>(unit & 0xFF));
    bytes.push_back(static_cast<char>(unit >> 8));
  }
  return bytes;
}

class StoreTest : public tests::RulesTest {
 protected:
  bool Store() { return rules::StoreConfig(rules_context_); }
  std::string Stored() const { return FileText("CfgSettings.txt"); }

  rules::Context rules_context_{model_, device_, symbols_, changes_, events_, edit_, boxes_, shell_, flashWrite_};
};

TEST_F(StoreTest, OnePropertyIsThreeRecordsAndALineFeedAndNothingAfterThem) {
  fake_.Put(u"1.2", u"5");
  Build(Property("a", "1.2", "Integer"));
  EXPECT_TRUE(Store());
  const WideString expected = u"<Tag>R\\a<\\Tag>\n<Tag>1.2<\\Tag><Tag>5<\\Tag>";
  EXPECT_EQ(Bytes(expected), Stored());
  EXPECT_EQ(expected.size() * 2, Stored().size());
}

TEST_F(StoreTest, UnitsAreWrittenLowByteFirst) {
  fake_.Put(u"1.2", u"\u20AC\U0001F600");
  Build(Property("a", "1.2", "Octet String"));
  EXPECT_TRUE(Store());
  const std::string stored = Stored();
  EXPECT_NE(std::string::npos, stored.find(std::string("\xAC\x20\x3D\xD8\x00\xDE", 6)));
  EXPECT_EQ(std::string("<\0T\0", 4), stored.substr(0, 4));
}

TEST_F(StoreTest, PropertiesFollowOneAnotherInTheOrderOfTheSource) {
  fake_.Put(u"1", u"10.0.0.1");
  fake_.Put(u"2", u"two");
  fake_.Put(u"3", u"three");
  Build(Group("menu", Property("b", "2", "Octet String", Tag("Ordinal", "2") + Property("below", "3", "Octet String")) +
                          Property("a", "1", "IP Address", Tag("Ordinal", "1")) + Group("empty", "")) +
        Property("c", "3", "Octet String") + Group("field", Tag("CmdOID", "2:1")));
  EXPECT_TRUE(Store());
  // What stands below a property is not written.
  EXPECT_EQ(Bytes(u"<Tag>R\\menu\\b<\\Tag>\n<Tag>2<\\Tag><Tag>two<\\Tag>"
                  u"<Tag>R\\menu\\a<\\Tag>\n<Tag>1<\\Tag><Tag>167772161<\\Tag>"
                  u"<Tag>R\\c<\\Tag>\n<Tag>3<\\Tag><Tag>three<\\Tag>"),
            Stored());
}

TEST_F(StoreTest, ValuesAreReadAnewAndUnreadOnesAreEmpty) {
  fake_.Put(u"1", u"1");
  Build(Property("a", "1", "Integer") + Property("b", "2", "Integer") + Property("l", "_Local", "Integer"));
  Item(u"a").Descriptor()->SetNewValue(values::PropertyValue::OfInteger(9));  // an edit that is not applied
  fake_.Put(u"1", u"4");
  EXPECT_TRUE(Store());
  EXPECT_EQ(Bytes(u"<Tag>R\\a<\\Tag>\n<Tag>1<\\Tag><Tag>4<\\Tag>"
                  u"<Tag>R\\b<\\Tag>\n<Tag>2<\\Tag><Tag><\\Tag>"
                  u"<Tag>R\\l<\\Tag>\n<Tag>_Local<\\Tag><Tag><\\Tag>"),
            Stored());
  EXPECT_EQ(Item(u"a").Descriptor(), model_.FindDescriptor(u"1"));
  EXPECT_EQ(u"9", Item(u"a").Descriptor()->GetValue().AsText());
}

TEST_F(StoreTest, AFieldWithAnOidOfItsOwnHasTheValueThatTheModelGivesIt) {
  fake_.Put(u"7", u"AABBB");
  fake_.Put(u"1", u"its own");
  Build(Property("f", "1", "Octet String", Tag("CmdOID", "7:2") + Tag("Ordinal", "2")) +
        Property("cmd", "7", "ReaderCmd", Tag("CmdString", "2,2,3") + Tag("Ordinal", "1")) +
        Property("orphan", "1", "Octet String", Tag("CmdOID", "8:1") + Tag("Ordinal", "3")) +
        Property("unordered", "1", "Octet String", Tag("CmdOID", "7:1")));
  EXPECT_EQ(u"BBB", Item(u"f").Descriptor()->GetValue().AsText());
  EXPECT_EQ(u"", Item(u"orphan").Descriptor()->GetValue().AsText());
  EXPECT_EQ(u"", Item(u"unordered").Descriptor()->GetValue().AsText());

  Item(u"cmd").Descriptor()->SetNewValue(values::PropertyValue::OfText(u"XXYYY"));  // an edit that is not applied
  EXPECT_TRUE(Store());
  EXPECT_EQ(Bytes(u"<Tag>R\\f<\\Tag>\n<Tag>1<\\Tag><Tag>BBB<\\Tag>"
                  u"<Tag>R\\cmd<\\Tag>\n<Tag>7<\\Tag><Tag>AABBB<\\Tag>"
                  u"<Tag>R\\orphan<\\Tag>\n<Tag>1<\\Tag><Tag><\\Tag>"
                  u"<Tag>R\\unordered<\\Tag>\n<Tag>1<\\Tag><Tag><\\Tag>"),
            Stored());
}

TEST_F(StoreTest, APropertyThatNamesItselfAsItsCommandIsStoredEmpty) {
  fake_.Put(u"7", u"AABBB");
  Build(Property("a", "7", "ReaderCmd", Tag("CmdOID", "7") + Tag("CmdString", "1,5") + Tag("Ordinal", "1")));
  EXPECT_TRUE(Store());
  EXPECT_EQ(Bytes(u"<Tag>R\\a<\\Tag>\n<Tag>7<\\Tag><Tag><\\Tag>"), Stored());
}

TEST_F(StoreTest, TheDeviceIsNotAskedBeforeItMayBeRead) {
  fake_.Put(u"1", u"5");
  Build(Property("a", "1", "Integer"));
  platform::Event asked(u"", false);
  values::DeviceAccess device([&] {
    asked.Set();
    return fake_.Connector()();
  });
  const rules::Context context{model_, device, symbols_, changes_, events_, edit_, boxes_, shell_, flashWrite_};
  bool askedTooEarly = false;
  deviceGate_.Reset();
  {
    const platform::Thread other([&] {
      askedTooEarly = asked.Wait(50);
      deviceGate_.Set();
    });
    EXPECT_TRUE(rules::StoreConfig(context));
  }
  EXPECT_FALSE(askedTooEarly);
  EXPECT_EQ(Bytes(u"<Tag>R\\a<\\Tag>\n<Tag>1<\\Tag><Tag>5<\\Tag>"), Stored());
}

TEST_F(StoreTest, NothingIsReadForAFileThatCannotBeMade) {
  fake_.Put(u"1", u"5");
  Build(Property("a", "1", "Integer"));
  calls_.count = 0;
  platform::host::CurrentEnvironment().root = "/proc";  // a folder in which nobody can make a file
  EXPECT_FALSE(Store());
  platform::host::CurrentEnvironment().root = root_;
  platform::host::CurrentEnvironment().refuses = [](platform::host::Use use) {
    return use == platform::host::Use::kCreateFile;
  };
  EXPECT_FALSE(Store());
  EXPECT_EQ(0, calls_.count);
  EXPECT_EQ("(no file)", Stored());
}

TEST_F(StoreTest, NothingToWriteGivesAnEmptyFile) {
  Build(Group("menu", Group("empty", "")));
  EXPECT_TRUE(Store());
  EXPECT_EQ("", Stored());
}

TEST_F(StoreTest, AnAbsoluteNameIsThePathItselfAndNeverLeadsRoundInACircle) {
  using platform::host::RegistryTree;
  const WideString root = u"HKEY_LOCAL_MACHINE\\Menu";
  RegistryTree& registry = terminal_.Registry();
  auto& property = registry.Add(RegistryTree::kLocalMachine, u"Menu\\a");
  RegistryTree::SetText(property, u"OID", u"1");
  RegistryTree::SetText(property, u"Type", u"Integer");
  RegistryTree::SetText(registry.Add(RegistryTree::kLocalMachine, u"Menu\\b"), u"Descendent", root + u"\\a");
  RegistryTree::SetText(registry.Add(RegistryTree::kLocalMachine, u"Menu\\c"), u"Descendent", root);
  RegistryTree::SetText(registry.Add(RegistryTree::kLocalMachine, u"Menu\\d"), u"Descendent", root + u"\\nothing");
  fake_.Put(u"1", u"5");
  const auto tree = std::make_shared<const config::PDataStore>(root, nullptr, std::span<const WideString>(),
                                                               config::PDataStore::kWholeTree);
  ASSERT_TRUE(model_.Build(tree, root));
  observer_.debugLines.clear();

  EXPECT_TRUE(Store());
  const WideString a = u"<Tag>HKEY_LOCAL_MACHINE\\Menu\\a<\\Tag>\n<Tag>1<\\Tag><Tag>5<\\Tag>";
  EXPECT_EQ(Bytes(a + a), Stored());
  EXPECT_EQ((std::vector<WideString>{
                u"FAILED: WriteConfigTree  [HKEY_LOCAL_MACHINE\\Menu] leads back to a key above it\r\n"}),
            observer_.debugLines);
}

TEST_F(StoreTest, MenusThatAreMetOverAndOverDoNotMultiplyIt) {
  constexpr int kLevels = 60;
  fake_.Put(u"1", u"5");
  std::string groups;
  for (int i = 0; i < kLevels; ++i) groups += "<GROUP name='a'>" + Property("p", "1", "Integer");
  for (int i = 0; i < kLevels; ++i) groups += "</GROUP><GROUP name='a'/>";
  Build(groups);
  calls_.count = 0;
  EXPECT_TRUE(Store());
  EXPECT_GE(calls_.count, kLevels);
  EXPECT_LE(calls_.count, kLevels * (model::KeyVisits::kMost + 1));
  ASSERT_FALSE(observer_.debugLines.empty());
  EXPECT_EQ(u"FAILED: WriteConfigTree  [a] is met too often, nothing below it is taken\r\n",
            observer_.debugLines.front());
}

TEST_F(StoreTest, AnUnknownPathWritesNothing) {
  Build(Property("a", "1", "Integer"));
  platform::OutputFile file(u"\\out.txt");
  EXPECT_TRUE(rules::WriteConfigTree(rules_context_, u"R\\nowhere", file));
  EXPECT_TRUE(file.Commit());
  EXPECT_EQ("", FileText("out.txt"));
}

TEST_F(StoreTest, AFileThatCannotBeReplacedStaysAsItWas) {
  Build(Property("a", "1", "Integer"));
  std::filesystem::create_directories(root_ / "CfgSettings.txt");
  EXPECT_FALSE(Store());
  EXPECT_TRUE(std::filesystem::is_directory(root_ / "CfgSettings.txt"));
}

TEST_F(StoreTest, AnOlderFileIsReplacedWhole) {
  fake_.Put(u"1", u"5");
  Build(Property("a", "1", "Integer"));
  std::ofstream(root_ / "CfgSettings.txt") << std::string(100'000, 'x');
  EXPECT_TRUE(Store());
  EXPECT_EQ(Bytes(u"<Tag>R\\a<\\Tag>\n<Tag>1<\\Tag><Tag>5<\\Tag>"), Stored());
}

TEST_F(StoreTest, AStoredFileReadBackEqualsTheTree) {
  std::string groups;
  WideString expected;
  for (int i = 0; i < 3000; ++i) {
    const std::string number = std::to_string(i);
    fake_.Put(base::FromUtf8("1." + number), base::FromUtf8("value " + number));
    groups += Group("m" + number, Property("p", "1." + number, "Octet String"));
    expected += base::FromUtf8("<Tag>R\\m" + number + "\\p<\\Tag>\n<Tag>1." + number + "<\\Tag><Tag>value " + number +
                               "<\\Tag>");
  }
  Build(groups);
  EXPECT_TRUE(Store());
  EXPECT_TRUE(Bytes(expected) == Stored());
}

class SummaryTest : public tests::RulesTest {
 protected:
  void SetUp() override {
    fake_.Put(u"1", u"2");
    fake_.Put(u"2", u"secret");
    fake_.Put(u"3", u"net");
    Build(Group("sub", Tag("DisplayName", "Sub") + Property("mode", "1", "Integer", Tag("ChoiceFmt", "SYM_MODES")) +
                           Group("deep", Tag("DisplayName", "Deep") + Property("ssid", "3", "Octet String"))) +
          Property("word", "2", "Password", Tag("PassWordChar", "*")) +
          Group("summary", Tag("DisplayName", "Summary") + Tag("Function", "Summary")) + Property("x", "9", "Integer"));
  }
};

TEST_F(SummaryTest, ListsMenusWithTheirPropertiesMasked) {
  EXPECT_EQ((std::vector<WideString>{u"Sub", u"mode: Two", u"Deep", u"ssid: net"}),
            rules::SummaryLines(model_, Item(u"sub")));
}

TEST_F(SummaryTest, FromALeafItListsTheWholeConfiguration) {
  EXPECT_EQ((std::vector<WideString>{WideString(model_.Root().Title()), u"word: ******", u"x: Unavailable", u"Sub",
                                     u"mode: Two", u"Deep", u"ssid: net"}),
            rules::SummaryLines(model_, Item(u"summary")));
}

// As in the menu, where its fields have their lines and a secret among them its stars.
TEST_F(SummaryTest, OfACommandTheTitleAloneIsListed) {
  fake_.Put(u"7", u"123SECRET");
  Build(Group("menu", Tag("DisplayName", "Menu") +
                          Property("modem", "7", "ReaderCmd", Tag("CmdString", "2,3,6") + Tag("Ordinal", "1")) +
                          Group("pin", Tag("DisplayName", "pin") + Tag("CmdOID", "7:2") + Tag("Ordinal", "2") +
                                           Tag("Type", "Password"))));
  EXPECT_EQ((std::vector<WideString>{u"Menu", u"modem", u"pin: ******"}), rules::SummaryLines(model_, Item(u"menu")));
}

TEST_F(SummaryTest, ATitleIsListedAsFarAsALineGoes) {
  const std::string title(model::MenuItem::kLongestLine + 1, 't');
  fake_.Put(u"1", u"5");
  Build(Group("menu", Tag("DisplayName", title) + Property("number", "1", "Integer")));
  EXPECT_EQ((std::vector<WideString>{WideString(model::MenuItem::kLongestLine, u't'), u"number: 5"}),
            rules::SummaryLines(model_, Item(u"menu")));
}

}  // namespace

#include "config/registry_key_reader.h"

#include "config/data_store.h"
#include "platform/host/registry_tree.h"
#include "tests/config/xml_tree.h"
#include "tests/printing.h"
#include "tests/support/test_terminal.h"

#include <gtest/gtest.h>

#include <string>

namespace config {
namespace {

using platform::host::RegistryBytes;
using platform::host::RegistryTree;

constexpr std::uint32_t kExpandableText = 2;
constexpr std::uint32_t kBytes = 3;
constexpr std::uint32_t kTextList = 7;

class RegistryTest : public testing::Test {
 protected:
  platform::host::RegistryTreeKey& Add(WideStringView path) {
    return terminal_.Registry().Add(RegistryTree::kLocalMachine, path);
  }

  tests::TestTerminal terminal_;
};

using OpenKeyTest = RegistryTest;
using RegistryKeyReaderTest = RegistryTest;
using ReadValueAsTextTest = RegistryTest;
using RegistrySourceTest = RegistryTest;

bool Opens(WideStringView path) { return OpenKey(path, false, platform::kKeyAllAccess).has_value(); }

TEST_F(OpenKeyTest, RootNamesAreExact) {
  Add(u"SOFTWARE\\Menu");
  EXPECT_TRUE(Opens(u"HKEY_LOCAL_MACHINE\\SOFTWARE\\Menu"));
  EXPECT_FALSE(Opens(u"hkey_local_machine\\SOFTWARE\\Menu"));
  EXPECT_FALSE(Opens(u"HKEY_LOCAL_MACHINES\\SOFTWARE\\Menu"));
  EXPECT_FALSE(Opens(u"HKEY_CURRENT_CONFIG"));
  EXPECT_FALSE(Opens(u"SOFTWARE\\Menu"));
  EXPECT_FALSE(Opens(u""));
  EXPECT_FALSE(Opens(u"\\SOFTWARE"));
}

TEST_F(OpenKeyTest, EachRootNameStandsForItsRoot) {
  const struct {
    const char16_t* name;
    platform::RegistryRoot root;
  } roots[] = {{u"HKEY_CLASSES_ROOT", 0x80000000},
               {u"HKEY_CURRENT_USER", 0x80000001},
               {u"HKEY_LOCAL_MACHINE", 0x80000002},
               {u"HKEY_USERS", 0x80000003}};
  for (const auto& r : roots) terminal_.Registry().Add(r.root, u"Of " + WideString(r.name));
  for (const auto& r : roots) {
    EXPECT_EQ((Names{u"Of " + WideString(r.name)}), RegistryKeyReader(r.name).subkeys);  // the name alone is the root
    EXPECT_TRUE(Opens(WideString(r.name) + u"\\Of " + r.name));
  }
}

TEST_F(OpenKeyTest, AKeyThatIsMissingOrDeniedFails) {
  Add(u"Denied").denied = true;
  EXPECT_FALSE(Opens(u"HKEY_LOCAL_MACHINE\\Missing"));
  EXPECT_FALSE(Opens(u"HKEY_LOCAL_MACHINE\\Denied"));
}

TEST_F(RegistryKeyReaderTest, TextsAndListsAreReadAndOtherTypesAreNot) {
  platform::host::RegistryTreeKey& key = Add(u"Menu");
  RegistryTree::SetText(key, u"DisplayName", u"Main");
  RegistryTree::SetBytes(key, u"Expanded", kExpandableText, RegistryBytes(u"%windir%\\x"));
  RegistryTree::SetNumber(key, u"Number", 7);
  RegistryTree::SetBytes(key, u"Raw", kBytes, "abc");
  RegistryTree::SetTextList(key, u"List", {u"a", u"b"});
  RegistryTree::SetBytes(key, u"EmptyList", kTextList, "");
  Add(u"Menu\\b");
  Add(u"Menu\\A");

  const RegistryKeyReader reader(u"HKEY_LOCAL_MACHINE\\Menu");
  EXPECT_EQ((Names{u"A", u"b"}), reader.subkeys);
  EXPECT_EQ(2u, reader.values.size());
  EXPECT_EQ(u"Main", reader.values.at(u"DisplayName"));
  EXPECT_EQ(u"%windir%\\x", reader.values.at(u"Expanded"));  // references stay
  ASSERT_NE(nullptr, reader.lists);
  EXPECT_EQ((Names{u"a", u"b"}), reader.lists->at(u"List"));
  EXPECT_TRUE(reader.lists->at(u"EmptyList").empty());
  EXPECT_EQ(2u, reader.lists->size());
}

TEST_F(RegistryKeyReaderTest, AKeyThatCannotBeOpenedHoldsNothing) {
  const RegistryKeyReader reader(u"HKEY_LOCAL_MACHINE\\Missing");
  EXPECT_TRUE(reader.subkeys.empty());
  EXPECT_TRUE(reader.values.empty());
  EXPECT_EQ(nullptr, reader.lists);
}

TEST_F(RegistryKeyReaderTest, WithoutListsThereIsNoMapOfThem) {
  RegistryTree::SetText(Add(u"Menu"), u"A", u"1");
  EXPECT_EQ(nullptr, RegistryKeyReader(u"HKEY_LOCAL_MACHINE\\Menu").lists);
}

TEST_F(RegistryKeyReaderTest, TextsAsTheyAreStored) {
  const struct {
    const char* name;
    std::string data;
    WideString text;
  } cases[] = {
      {"no zero at the end", RegistryBytes(u"abc").substr(0, 6), u"abc"},
      {"a zero inside", RegistryBytes(WideStringView(u"ab\0cd", 5)), u"ab"},
      {"half a unit at the end", std::string("a\0b", 3), u"ab"},
      {"nothing", "", u""},
      {"4096 bytes without a zero", std::string(4096, 'a'), WideString(2048, u'\u6161')},
  };
  for (const auto& c : cases) {
    RegistryTree::SetBytes(Add(u"Menu"), u"V", 1, c.data);
    EXPECT_EQ(c.text, RegistryKeyReader(u"HKEY_LOCAL_MACHINE\\Menu").values.at(u"V")) << c.name;
  }
}

TEST_F(RegistryKeyReaderTest, AListEndsAtItsEmptyTextOrWithItsData) {
  const struct {
    WideString stored;
    Names list;
  } cases[] = {
      {WideString(u"a\0b\0\0", 5), {u"a", u"b"}},
      {WideString(u"a\0\0b\0\0", 6), {u"a"}},
      {WideString(u"a\0b", 3), {u"a", u"b"}},
      {WideString(u"\0", 1), {}},
  };
  for (const auto& c : cases) {
    std::string data = RegistryBytes(c.stored);
    data.resize(c.stored.size() * 2);
    RegistryTree::SetBytes(Add(u"Menu"), u"L", kTextList, data);
    EXPECT_EQ(c.list, RegistryKeyReader(u"HKEY_LOCAL_MACHINE\\Menu").lists->at(u"L"));
  }
}

TEST_F(RegistryKeyReaderTest, AValueOfMoreThan4096BytesEndsTheReading) {
  platform::host::RegistryTreeKey& key = Add(u"Menu");
  RegistryTree::SetText(key, u"A", u"read");
  RegistryTree::SetBytes(key, u"B", kBytes, std::string(4097, 'x'));  // of whatever type
  RegistryTree::SetText(key, u"C", u"not read");
  const RegistryKeyReader reader(u"HKEY_LOCAL_MACHINE\\Menu");
  EXPECT_EQ(1u, reader.values.size());
  EXPECT_EQ(u"read", reader.values.at(u"A"));
  EXPECT_EQ(std::nullopt, ReadValueAsText(u"HKEY_LOCAL_MACHINE\\Menu", u"C"));
}

TEST_F(RegistryKeyReaderTest, ANameThatDoesNotFitEndsTheReading) {
  platform::host::RegistryTreeKey& key = Add(u"Menu");
  RegistryTree::SetText(key, u"a", u"read");
  RegistryTree::SetText(key, u"b" + WideString(2047, u'x'), u"too long by the zero behind it");
  RegistryTree::SetText(key, u"c", u"not read");
  Add(u"Menu\\a");
  Add(u"Menu\\b" + WideString(1023, u'x'));
  Add(u"Menu\\c");
  const RegistryKeyReader reader(u"HKEY_LOCAL_MACHINE\\Menu");
  EXPECT_EQ((Names{u"a"}), reader.subkeys);
  EXPECT_EQ(1u, reader.values.size());
}

TEST_F(RegistryKeyReaderTest, TheLongestNamesThatFitAreRead) {
  const WideString longValue = u"b" + WideString(2046, u'x');
  const WideString longKey = u"b" + WideString(1022, u'x');
  RegistryTree::SetText(Add(u"Menu"), longValue, u"read");
  Add(u"Menu\\" + longKey);
  const RegistryKeyReader reader(u"HKEY_LOCAL_MACHINE\\Menu");
  EXPECT_EQ((Names{longKey}), reader.subkeys);
  EXPECT_EQ(1u, reader.values.count(longValue));
}

TEST_F(ReadValueAsTextTest, AnIdentifierWithoutATextIsNotTheValueWithoutAName) {
  RegistryTree::SetText(Add(u"Menu"), u"", u"of no name");
  const PDataStore tree(u"HKEY_LOCAL_MACHINE\\Menu", nullptr, {}, 0);
  EXPECT_EQ(u"of no name", tree.Find(u"HKEY_LOCAL_MACHINE\\Menu")->Value(u""));
  EXPECT_EQ(u"", tree.Find(u"HKEY_LOCAL_MACHINE\\Menu")->Value(TextId{6092}));
}

TEST_F(ReadValueAsTextTest, TheNameMatchesInAnyCase) {
  RegistryTree::SetText(Add(u"Menu"), u"displayname", u"Main");
  EXPECT_EQ(u"Main", ReadValueAsText(u"HKEY_LOCAL_MACHINE\\Menu", u"DisplayName"));
  const PDataStore tree(u"HKEY_LOCAL_MACHINE\\Menu", nullptr, {}, 0);
  EXPECT_EQ(u"", tree.Find(u"HKEY_LOCAL_MACHINE\\Menu")->Value(u"DisplayName"));  // the tree is exact
}

TEST_F(ReadValueAsTextTest, ListsAreJoinedByBlanks) {
  RegistryTree::SetTextList(Add(u"Menu"), u"List", {u"a", u"b"});
  RegistryTree::SetTextList(Add(u"Menu"), u"One", {u"a"});
  EXPECT_EQ(u"a b", ReadValueAsText(u"HKEY_LOCAL_MACHINE\\Menu", u"List"));
  EXPECT_EQ(u"a", ReadValueAsText(u"HKEY_LOCAL_MACHINE\\Menu", u"One"));
}

TEST_F(ReadValueAsTextTest, OtherTypesAndMissingKeysAreNotFound) {
  RegistryTree::SetNumber(Add(u"Menu"), u"Number", 1);
  EXPECT_EQ(std::nullopt, ReadValueAsText(u"HKEY_LOCAL_MACHINE\\Menu", u"Number"));
  EXPECT_EQ(std::nullopt, ReadValueAsText(u"HKEY_LOCAL_MACHINE\\Menu", u"Missing"));
  EXPECT_EQ(std::nullopt, ReadValueAsText(u"HKEY_LOCAL_MACHINE\\Missing", u"A"));
  EXPECT_EQ(std::nullopt, ReadValueAsText(u"", u"A"));
}

TEST_F(RegistrySourceTest, ATreeIsReadFromTheRegistry) {
  RegistryTree::SetText(Add(u"Menu"), u"DisplayName", u"Main");
  RegistryTree::SetTextList(Add(u"Menu"), u"List", {u"a", u"b"});
  RegistryTree::SetText(Add(u"Menu\\Tools"), u"DisplayName", u"Tools");
  RegistryTree::SetText(Add(u"Menu\\Network\\DHCP"), u"OID", u"1.2");
  const PDataStore tree(u"HKEY_LOCAL_MACHINE\\Menu", nullptr, {}, PDataStore::kWholeTree);
  EXPECT_EQ(4u, tree.Count());
  const ConfigKey& root = *tree.Find(u"HKEY_LOCAL_MACHINE\\Menu");
  EXPECT_EQ(u"HKEY_LOCAL_MACHINE\\Menu", root.Path());
  EXPECT_EQ(u"Main", root.Value(u"DisplayName"));
  EXPECT_EQ((Names{u"a", u"b"}), *root.List(u"List"));
  EXPECT_EQ(nullptr, root.List(u"list"));
  EXPECT_EQ((Names{u"Network", u"Tools"}), SubkeysOf(tree, u"HKEY_LOCAL_MACHINE\\Menu"));
  EXPECT_EQ(u"1.2", tree.Find(u"HKEY_LOCAL_MACHINE\\Menu\\Network\\DHCP")->Value(u"OID"));
  EXPECT_EQ(u"HKEY_LOCAL_MACHINE\\Menu\\Network\\DHCP", tree.Find(u"HKEY_LOCAL_MACHINE\\Menu\\Network\\DHCP")->Path());
  EXPECT_EQ(nullptr, tree.Find(u"HKEY_LOCAL_MACHINE"));
}

TEST_F(RegistrySourceTest, ADescendentOfTheRegistryMayBeDeep) {
  RegistryTree::SetText(Add(u"Menu"), u"Descendent", u"Network\\DHCP");
  RegistryTree::SetText(Add(u"Menu\\Network\\DHCP"), u"OID", u"1.2");
  const PDataStore tree(u"HKEY_LOCAL_MACHINE\\Menu", nullptr, {}, PDataStore::kTopLevelOnly);
  EXPECT_EQ(3u, tree.Count());
  EXPECT_EQ(u"1.2", tree.Find(u"HKEY_LOCAL_MACHINE\\Menu\\Network\\DHCP")->Value(u"OID"));
}

TEST_F(RegistrySourceTest, ADescendentNeverLeadsBackToItsOwnKey) {
  for (const char16_t* descendent : {u"\\", u"\\\\", u"\\\\\\"}) {
    RegistryTree::SetText(Add(u"Menu"), u"Descendent", descendent);
    RegistryTree::SetText(Add(u"Menu\\a"), u"Descendent", descendent);
    const PDataStore tree(u"HKEY_LOCAL_MACHINE\\Menu", nullptr, {}, PDataStore::kWholeTree);
    EXPECT_EQ(2u, tree.Count());
    EXPECT_EQ((Names{u"a"}), SubkeysOf(tree, u"HKEY_LOCAL_MACHINE\\Menu"));
    EXPECT_EQ((Names{}), SubkeysOf(tree, u"HKEY_LOCAL_MACHINE\\Menu\\a"));
    const WideString failed = u"FAILED: RegistryTreeBuilder::Read  Descendent[" + WideString(descendent);
    EXPECT_EQ((Names{failed + u"] leads back to [HKEY_LOCAL_MACHINE\\Menu]\r\n",
                     failed + u"] leads back to [HKEY_LOCAL_MACHINE\\Menu\\a]\r\n"}),
              terminal_.TakeDebugLines());
  }
}

TEST_F(RegistrySourceTest, ADescendentIsSpelledAsTheRegistrySpellsIt) {
  const struct {
    const char16_t* descendent;
    const char16_t* spelled;
  } cases[] = {
      {u"Network\\DHCP", u"Network\\DHCP"},
      {u"network\\dhcp", u"Network\\DHCP"},
      {u"\\Network\\\\DHCP\\", u"Network\\DHCP"},
      {u"lost\\DHCP", u"lost\\DHCP"},
      {u"HKEY_LOCAL_MACHINE\\Menu", u"HKEY_LOCAL_MACHINE\\Menu"},
  };
  Add(u"Menu\\Network\\DHCP\\x");
  for (const auto& c : cases) {
    RegistryTree::SetText(Add(u"Menu"), u"Descendent", c.descendent);
    const PDataStore tree(u"HKEY_LOCAL_MACHINE\\Menu", nullptr, {}, PDataStore::kWholeTree);
    EXPECT_EQ((Names{u"Network", c.spelled}), SubkeysOf(tree, u"HKEY_LOCAL_MACHINE\\Menu"));
    EXPECT_EQ(c.descendent, tree.Find(u"HKEY_LOCAL_MACHINE\\Menu")->Value(u"Descendent"));
  }
}

TEST_F(RegistrySourceTest, SpellingsOfOneKeyDoNotMultiplyTheTree) {
  constexpr std::size_t kLevels = 40;
  WideString path = u"Menu";
  for (std::size_t i = 0; i < kLevels; ++i) {
    RegistryTree::SetText(Add(path), u"Descendent", i % 2 == 0 ? u"A" : u"\\a\\A");
    path += u"\\a";
  }
  EXPECT_EQ(kLevels + 1, PDataStore(u"HKEY_LOCAL_MACHINE\\Menu", nullptr, {}, 100).Count());
}

TEST_F(RegistrySourceTest, AKeyThatCannotBeOpenedIsAnEmptyKeyWithItsPath) {
  Add(u"Menu\\Denied").denied = true;
  Add(u"Menu\\Denied\\Below");
  const PDataStore tree(u"HKEY_LOCAL_MACHINE\\Menu", nullptr, {}, PDataStore::kWholeTree);
  EXPECT_EQ(2u, tree.Count());
  EXPECT_EQ(u"HKEY_LOCAL_MACHINE\\Menu\\Denied", tree.Find(u"HKEY_LOCAL_MACHINE\\Menu\\Denied")->Path());
  EXPECT_TRUE(SubkeysOf(tree, u"HKEY_LOCAL_MACHINE\\Menu\\Denied").empty());
}

TEST_F(RegistrySourceTest, TheDepthIsLimited) {
  Add(u"a\\b\\c");
  EXPECT_EQ(1u, PDataStore(u"HKEY_LOCAL_MACHINE\\a", nullptr, {}, 0).Count());
  EXPECT_EQ(2u, PDataStore(u"HKEY_LOCAL_MACHINE\\a", nullptr, {}, 1).Count());
}

}  // namespace
}  // namespace config

#include "config/data_store.h"

#include "base/string_table.h"
#include "tests/config/xml_tree.h"
#include "tests/printing.h"

#include <gtest/gtest.h>

#include <string>

namespace config {
namespace {

constexpr WideStringView kMenu =
    u"<GROUP name='Root'><DisplayName>Main</DisplayName>"
    u"<GROUP name='Network'><GROUP name='DHCP'><OID>1.2</OID></GROUP><DisplayName>Network</DisplayName></GROUP>"
    u"<GROUP name='Tools'/></GROUP>";

TEST(PDataStore, KeysAreFoundByTheirFullPath) {
  const auto tree = XmlTree(kMenu, u"Root");
  EXPECT_EQ(4u, tree->Count());
  EXPECT_EQ(u"Main", tree->Find(u"Root")->Value(u"DisplayName"));
  EXPECT_EQ(u"1.2", tree->Find(u"Root\\Network\\DHCP")->Value(TextId::kOid));
  EXPECT_EQ((Names{u"Network", u"Tools"}), SubkeysOf(*tree, u"Root"));
  EXPECT_EQ((Names{u"DHCP"}), SubkeysOf(*tree, u"Root\\Network"));
}

TEST(PDataStore, PathsAreExact) {
  const auto tree = XmlTree(kMenu, u"Root");
  for (const char16_t* path : {u"", u"root", u"ROOT\\Network", u"Root\\network", u"Root\\", u"Root\\\\Network",
                               u"Root\\Network\\", u"Root\\Network\\..", u"Network", u"Root\\Net", u"oot\\Network"}) {
    EXPECT_EQ(nullptr, tree->Find(path)) << base::ToUtf8(path);
  }
}

TEST(PDataStore, KeysAreFoundBelowOneAnother) {
  const auto tree = XmlTree(kMenu, u"Root");
  const ConfigKey& root = *tree->Find(u"Root");
  EXPECT_EQ(tree->Find(u"Root\\Network"), tree->FindBelow(root, u"Network"));
  EXPECT_EQ(tree->Find(u"Root\\Network\\DHCP"), tree->FindBelow(root, u"Network\\DHCP"));
  EXPECT_EQ(u"Root\\Network\\DHCP", tree->FindBelow(root, u"Network\\DHCP")->FullPath());
  for (const char16_t* path : {u"", u"network", u"Network\\", u"\\Network", u"DHCP", u"Root", u"Lost\\DHCP"}) {
    EXPECT_EQ(nullptr, tree->FindBelow(root, path)) << base::ToUtf8(path);
  }
}

TEST(PDataStore, AKeyOfADocumentHasNoPath) { EXPECT_EQ(u"", XmlTree(kMenu, u"Root")->Find(u"Root\\Network")->Path()); }

TEST(PDataStore, AValueThatIsAbsentIsEmpty) {
  const auto tree = XmlTree(kMenu, u"Root");
  EXPECT_EQ(u"", tree->Find(u"Root")->Value(u"displayname"));  // names are exact
  EXPECT_EQ(u"", tree->Find(u"Root")->Value(TextId::kOid));
  EXPECT_EQ(u"", tree->Find(u"Root")->Value(static_cast<TextId>(6092)));  // a text that the table does not have
  EXPECT_EQ(nullptr, tree->Find(u"Root")->List(u"DisplayName"));
}

TEST(PDataStore, AKeyWithoutChildrenEndsTheWalk) {
  const auto tree = XmlTree(kMenu, u"Root");
  EXPECT_TRUE(tree->Find(u"Root\\Tools")->Subkeys().empty());
  EXPECT_TRUE(tree->Find(u"Root\\Tools")->Values().empty());
}

TEST(PDataStore, DescendentIsTheLastSubkey) {
  const auto tree = XmlTree(
      u"<GROUP name='R'><Descendent>b\\c</Descendent><GROUP name='a'/><GROUP name='b'><GROUP name='c'><V>deep</V>"
      u"</GROUP></GROUP></GROUP>",
      u"R", 1);
  EXPECT_EQ((Names{u"a", u"b", u"b\\c"}), SubkeysOf(*tree, u"R"));
  // A relative path makes a deeper key a direct child, so it is there at depth 1.
  EXPECT_EQ(4u, tree->Count());
  EXPECT_EQ(u"deep", tree->Find(u"R\\b\\c")->Value(u"V"));
}

TEST(PDataStore, ADescendentThatDoesNotExistIsAnEmptyKey) {
  const auto tree = XmlTree(u"<GROUP name='R'><Descendent>nowhere</Descendent></GROUP>", u"R");
  ASSERT_NE(nullptr, tree->Find(u"R\\nowhere"));
  EXPECT_TRUE(tree->Find(u"R\\nowhere")->Values().empty());
  EXPECT_EQ(2u, tree->Count());
}

TEST(PDataStore, ARootThatTheDocumentDoesNotHoldIsAnEmptyKey) {
  const auto tree = XmlTree(kMenu, u"Elsewhere");
  EXPECT_EQ(1u, tree->Count());
  EXPECT_TRUE(tree->Find(u"Elsewhere")->Values().empty());
}

TEST(PDataStore, ARootNameWithBackslashesIsMatchedPartByPart) {
  EXPECT_TRUE(XmlTree(u"<GROUP name='A\\B'><V>x</V></GROUP>", u"A\\B")->Find(u"A\\B")->Values().empty());
  const auto nested = XmlTree(u"<GROUP name='A'><GROUP name='B'><V>x</V></GROUP></GROUP>", u"A\\B");
  EXPECT_EQ(u"x", nested->Find(u"A\\B")->Value(u"V"));
  EXPECT_EQ(nullptr, nested->Find(u"A"));  // only a step on the way
}

TEST(PDataStore, AGroupWithoutANameIsAKeyOfTheEmptyName) {
  const auto tree = XmlTree(u"<GROUP name='R'><V>root</V><GROUP><V>inner</V></GROUP></GROUP>", u"R");
  EXPECT_EQ((Names{u""}), SubkeysOf(*tree, u"R"));
  EXPECT_EQ(u"root", tree->Find(u"R\\")->Value(u"V"));     // the empty rest of a path ends the search at once
  EXPECT_EQ(u"inner", tree->Find(u"R\\\\")->Value(u"V"));  // and here one empty name was looked for
}

TEST(PDataStore, ARootWithoutANameStartsAboveTheDocument) {
  const auto tree = XmlTree(u"<GROUP><V>x</V></GROUP>", u"");
  ASSERT_NE(nullptr, tree->Find(u""));
  EXPECT_EQ((Names{u""}), SubkeysOf(*tree, u""));
  EXPECT_EQ(u"x", tree->Find(u"\\")->Value(u"V"));
}

TEST(PDataStore, OfSiblingsOfOneNameTheFirstThatHoldsTheRestIsUsed) {
  const auto tree = XmlTree(
      u"<GROUP name='R'><Descendent>a\\y</Descendent>"
      u"<GROUP name='a'><V>first</V><GROUP name='x'/></GROUP>"
      u"<GROUP name='a'><V>second</V><GROUP name='y'><V>deep</V></GROUP></GROUP></GROUP>",
      u"R");
  EXPECT_EQ((Names{u"a", u"a", u"a\\y"}), SubkeysOf(*tree, u"R"));
  EXPECT_EQ(u"first", tree->Find(u"R\\a")->Value(u"V"));
  EXPECT_EQ((Names{u"x"}), SubkeysOf(*tree, u"R\\a"));
  EXPECT_EQ(u"deep", tree->Find(u"R\\a\\y")->Value(u"V"));
  EXPECT_EQ(4u, tree->Count());
}

TEST(PDataStore, SiblingsOfOneNameInEveryLevelAreReadOnce) {
  WideString text;
  for (int i = 0; i < 40; ++i)
    text += u"<GROUP name='a'><GROUP name='a'/>";  // visiting each twice would take 2^40 steps
  for (int i = 0; i < 40; ++i) text += u"</GROUP>";
  EXPECT_EQ(2u, XmlTree(text, u"a")->Count());
  text.clear();
  for (int i = 0; i < 40; ++i) text += u"<GROUP name='a'>";
  text += u"<V>x</V>";
  for (int i = 0; i < 40; ++i) text += u"</GROUP><GROUP name='a'/>";
  EXPECT_EQ(40u, XmlTree(text, u"a")->Count());
}

TEST(PDataStore, TheDepthIsLimited) {
  EXPECT_EQ(1u, XmlTree(kMenu, u"Root", 0)->Count());
  const auto top = XmlTree(kMenu, u"Root", PDataStore::kTopLevelOnly);
  EXPECT_EQ(3u, top->Count());
  EXPECT_EQ(u"Network", top->Find(u"Root\\Network")->Value(u"DisplayName"));
  EXPECT_EQ((Names{u"DHCP"}), SubkeysOf(*top, u"Root\\Network"));  // named, but not there
  EXPECT_EQ(nullptr, top->Find(u"Root\\Network\\DHCP"));
}

TEST(PDataStore, TheLastOfTwoValuesOfOneNameStays) {
  const auto tree = XmlTree(u"<GROUP name='R'><V>1</V><W>2</W><V>3</V></GROUP>", u"R");
  EXPECT_EQ(u"3", tree->Find(u"R")->Value(u"V"));
  EXPECT_EQ(2u, tree->Find(u"R")->Values().size());
}

TEST(PDataStore, KeysOfManyValuesAreNoDifferent) {
  WideString text = u"<GROUP name='R'>";
  for (int i = 0; i < 300; ++i) {
    const WideString n = base::FromUtf8(std::to_string(i % 200));
    text += u"<V" + n + u">" + base::FromUtf8(std::to_string(i)) + u"</V" + n + u">";
  }
  const auto tree = XmlTree(text + u"</GROUP>", u"R");
  const ConfigKey& key = *tree->Find(u"R");
  EXPECT_EQ(200u, key.Values().size());
  EXPECT_EQ(u"250", key.Value(u"V50"));
  EXPECT_EQ(u"150", key.Value(u"V150"));
  EXPECT_EQ(u"", key.Value(u"V200"));
  EXPECT_EQ(u"", key.Value(u""));
}

TEST(PDataStore, ValuesAreTheTextsOfElementsThatAreNoGroups) {
  const auto tree = XmlTree(
      u"<GROUP name='R' other='x'><A>&lt;1&gt;</A><B><![CDATA[&lt;]]></B><C/><D>x<E/></D><F>  "
      u"<![CDATA[y]]></F></GROUP>",
      u"R");
  const ConfigKey& key = *tree->Find(u"R");
  EXPECT_EQ(u"<1>", key.Value(u"A"));
  EXPECT_EQ(u"&lt;", key.Value(u"B"));
  EXPECT_EQ(u"", key.Value(u"C"));
  EXPECT_EQ(u"", key.Value(u"D"));
  EXPECT_EQ(u"y", key.Value(u"F"));
  EXPECT_EQ(u"", key.Value(u"other"));
  EXPECT_EQ(5u, key.Values().size());
}

TEST(PDataStore, TextsOutliveTheDocument) {
  auto document = std::make_shared<XmlDocument>();
  ASSERT_TRUE(document->SetDocument(kMenu));
  const PDataStore tree(u"Root", document, {}, PDataStore::kWholeTree);
  document.reset();
  EXPECT_EQ(u"1.2", tree.Find(u"Root\\Network\\DHCP")->Value(u"OID"));
}

TEST(PDataStore, NestingDeeperThanTheTreeGoesIsCutOff) {
  WideString text;
  for (int i = 0; i < 20000; ++i) text += u"<GROUP name='a'>";
  for (int i = 0; i < 20000; ++i) text += u"</GROUP>";
  EXPECT_EQ(10000u, XmlTree(text, u"a")->Count());
}

TEST(PDataStore, NetworkAdaptersAreKeptInOrder) {
  const WideString names[] = {u"NE2000", u"WLAN"};
  PDataStore tree(u"R", nullptr, names, 0);
  ASSERT_EQ(2u, tree.NetworkAdapters().size());
  EXPECT_EQ(u"WLAN", tree.NetworkAdapters()[1]);
  EXPECT_EQ(1, tree.InitNetworkAdapterTable({}));
  EXPECT_TRUE(tree.NetworkAdapters().empty());
}

}  // namespace
}  // namespace config
